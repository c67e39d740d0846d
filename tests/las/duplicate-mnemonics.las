~VERSION INFORMATION
 VERS.   2.0 : CWLS LOG ASCII STANDARD - VERSION 2.0
 WRAP.   NO  : ONE LINE PER DEPTH STEP
~WELL INFORMATION
 STRT.M  1000 : START
 STOP.M  1000 : STOP
 STEP.M  0 : STEP
 NULL.   -999.25 : NULL VALUE
~CURVE INFORMATION
 DEPT.M :
 GR.GAPI : first run
 GR.GAPI : second run
 GR_2.GAPI : named like the second run's new name
 gr.GAPI : another run in lower case
 CURVE7. : named like the unnamed curve after it
 . : no name
~A
1000 45 46 47 48 1 2
