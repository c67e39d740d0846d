~V
 VERS. 2.0 :
 WRAP. YES :
~C
 DEPT.M :
 A.:
 B.:
~A
1000
1 2 3
