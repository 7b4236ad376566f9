VERSION 5.00
Begin VB.Form frmAsk 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "frmAsk"
Option Explicit

Private Sub Form_Load()
    MsgBox "Hello"
End Sub
