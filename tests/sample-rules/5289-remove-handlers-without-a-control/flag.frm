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
    Beep
End Sub

Private Sub cmdPrint_Click()
    Beep
End Sub
