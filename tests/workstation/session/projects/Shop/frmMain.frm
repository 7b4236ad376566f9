VERSION 5.00
Begin VB.Form frmMain
   Caption         =   "Shop"
   ClientHeight    =   3195
   ClientWidth     =   4680
   Begin VB.CommandButton cmdSell
      Caption         =   "Sell"
      Height          =   495
      Index           =   1
      Left            =   120
      Top             =   120
      Width           =   1215
   End
   Begin Shop.Dial dial
      Height          =   495
      Left            =   120
      Top             =   720
      Width           =   1215
   End
End
Attribute VB_Name = "frmMain"
Option Explicit

Private Sub cmdSell_Click(Index As Integer)
    On Error Resume Next
    modMain.Main
End Sub
