~Version
 VERS. 3.0 : CWLS LOG ASCII STANDARD - VERSION 3.0
 WRAP. NO : ONE LINE PER DEPTH STEP
 DLM . COMMA : DELIMITING CHARACTER
~Well
 NULL. -999.25 : NULL VALUE
 WELL. B-2 : WELL
~Core_Definition
 CTOP.M : core top {F}
~Log_Parameter
 BS.MM 200 : bit size {F}
~Log_Definition
 DEPT.M : depth {F}
 GR.GAPI : gamma ray {F} | assoc
~Log_Data | Log_Definition
1000.0, 45.5
1000.5, -999.25
