VERSION 5.00
Begin VB.Form frmMain 
   ClientHeight    =   11000
   ClientWidth     =   9000
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_Resize()
    picBody.Move 0, 0, ScaleWidth, ScaleHeight
End Sub
