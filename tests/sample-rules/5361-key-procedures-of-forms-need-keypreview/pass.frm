VERSION 5.00
Begin VB.Form frmMain 
   KeyPreview      =   -1  'True
   Begin VB.TextBox txtName 
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_KeyDown(KeyCode As Integer, Shift As Integer)
    If KeyCode = vbKeyF1 Then Unload Me
End Sub
