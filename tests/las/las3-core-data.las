~Version
 VERS. 3.0 :
 DLM . SPACE :
~Log_Definition
 DEPT.M :
~Log_Data
1000
~Core_Definition
 CTOP.M :
~Core_Data | Core_Definition
1000 1001
