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
    Select Case n
        Case 0
            Orders.Show 0
        Case 1
            Orders.Show 1
        Case 2
            Orders.Show 2
        Case 3
            Orders.Show 3
        Case 4
            Orders.Show 4
        Case 5
            Orders.Show 5
        Case 6
            Orders.Show 6
        Case 7
            Orders.Show 7
        Case 8
            Orders.Show 8
        Case 9
            Orders.Show 9
        Case 10
            Orders.Show 10
        Case 11
            Orders.Show 11
        Case 12
            Orders.Show 12
        Case 13
            Orders.Show 13
    End Select
End Sub
