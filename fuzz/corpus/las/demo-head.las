# Demonstration log of well LAS-1, written for the petrodb demo.
~VERSION INFORMATION
 VERS.                 2.0 : CWLS LOG ASCII STANDARD - VERSION 2.0
 WRAP.                  NO : ONE LINE PER DEPTH STEP
~WELL INFORMATION
 STRT.M             900.0 : START DEPTH
 STOP.M            1600.0 : STOP DEPTH
 STEP.M              25.0 : STEP
 NULL.            -999.25 : NULL VALUE
 WELL.              LAS-1 : WELL
 FLD .               DEMO : FIELD
~CURVE INFORMATION
 DEPT.M                   : MEASURED DEPTH
 GR  .GAPI                : GAMMA RAY
 SP  .MV                  : SPONTANEOUS POTENTIAL
 RT  .OHMM                : TRUE RESISTIVITY
~ASCII
   900.0    86.012   -26.121     3.405
   925.0    71.488   -17.978     3.067
   950.0    54.998   -10.443     2.610
   975.0    39.365    -5.783     2.205
  1000.0    27.262    -5.399  -999.250
  1025.0    20.761    -9.406     2.089
  1050.0    20.975   -16.601     2.421
  1075.0    27.866   -24.817     2.878
