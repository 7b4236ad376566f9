VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
   Begin VB.CommandButton cmdSave 
      Caption         =   "cmdSave"
      Height          =   375
      Left            =   120
   End
End
Attribute VB_Name = "frmOrders"
Option Explicit

Private Sub cmdSave_Click()
    If n = 0 Then Beep
    If n = 1 Then Beep
    If n = 2 Then Beep
    If n = 3 Then Beep
    If n = 4 Then Beep
    If n = 5 Then Beep
    If n = 6 Then Beep
    If n = 7 Then Beep
    If n = 8 Then Beep
    If n = 9 Then Beep
    If n = 10 Then Beep
    If n = 11 Then Beep
End Sub
