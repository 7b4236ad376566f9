VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.Timer tmrClock 
      Left            =   10
      Enabled         =   0   'False
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_Load()
    tmrClock.Interval = 1000
    tmrClock.Enabled = True
End Sub
