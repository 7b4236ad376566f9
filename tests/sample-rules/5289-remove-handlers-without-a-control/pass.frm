VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
   Begin VB.CommandButton cmdSave 
      Caption         =   "cmdSave"
      Height          =   375
      Left            =   120
   End
   Begin VB.Menu mnuFile 
      Caption         =   "mnuFile"
   End
End
Attribute VB_Name = "frmOrders"
Option Explicit
Private WithEvents m_Order As clsOrder
Implements ITick

Private Sub cmdSave_Click()
    Beep
End Sub

Private Sub mnuFile_Click()
    Beep
End Sub

Private Sub m_Order_Change()
    Beep
End Sub

Private Sub Form_Click()
    Beep
End Sub

Private Sub ITick_Timer()
    Beep
End Sub

Private Sub Do_Work()
    Beep
End Sub
