~Version
 VERS. 3.0 :
~Log_Definition
 DEPT.M :
~Log_Data
1000
~Log_Definition[2]
 DEPT.M :
~Log_Data[2]
1000
