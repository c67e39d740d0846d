# exported by some tool
~V
 VERS.   1.2 :
~W  x
 NULL .   -999.2500 : NULL
  WELL.   A-1 : WELL
~c
 DEPT.M : 
 GR .API :
 GR .API : second run
  : no name
~Other
 anything: at all
~a depth GR GR
# comment
-999.25 -999.25 1 2
 10 20 30 nan
 11 21
