VERSION 5.00
Object = "{99999999-1111-2222-3333-444444444444}#1.0#0"; "dials.ocx"
Begin VB.Form frmDials
   Caption         =   "Dials"
   ClientHeight    =   3195
   ClientWidth     =   4680
   Begin Dials.Dial dial
      Height          =   495
      Index           =   2
      Left            =   120
      Top             =   120
      Width           =   1215
   End
   Begin Dials.Dial dial
      Height          =   495
      Index           =   3
      Left            =   120
      Top             =   720
      Width           =   1215
   End
   Begin Dials.Needle ndl
      Height          =   495
      Left            =   120
      Top             =   1320
      Width           =   1215
   End
End
Attribute VB_Name = "frmDials"
Option Explicit

Private Sub Form_Load()
    GoTo Done
Done:
End Sub
