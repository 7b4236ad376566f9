VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.CommandButton cmdSave 
      Caption         =   "&Save"
   End
   Begin VB.CommandButton cmdOld 
      Caption         =   "&Old"
      Visible         =   0   'False
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdSave_Click()
    Unload Me
End Sub
