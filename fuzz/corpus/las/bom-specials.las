~V
 VERS. 2.0 :
~W
 NULL. nan :
~C
 D.M :
 X :
~A
1 inf
-0 1e-310
+5 -1.7976931348623157e308
