VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.Timer tmrClock 
      Interval        =   500
   End
   Begin VB.Timer tmrOnce 
      Enabled         =   0   'False
      Interval        =   1
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
