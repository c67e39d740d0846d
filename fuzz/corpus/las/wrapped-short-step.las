~V
 VERS. 2.0 :
 WRAP. YES : many lines per depth step
~W
 NULL. -999.25 :
~C
 DEPT.M :
 A.:
 B.:
 C.:
 D.:
~A
1000
1 2
3 4
1000.5
5 6 7
8
1001
9 10
