VERSION 5.00
Begin VB.Form frmCount 
   Caption         =   "Stock taking"
   ClientHeight    =   1200
   ClientWidth     =   3000
   Begin VB.TextBox Text1 
      Height          =   285
      Left            =   120
      Top             =   120
      Width           =   2655
   End
End
Attribute VB_Name = "frmCount"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False

Private mobjStock As Stock

Private Sub Form_Load()
Set mobjStock = New Stock: mobjStock.Name = "Main"
If Command$ <> "" Then
On Error GoTo Weiter
Text1 = Command$
Weiter:
End If
End Sub

Private Sub Text1_KeyPress(KeyAscii As Integer)
If KeyAscii = 13 Then KeyAscii = 0: SendKeys "{TAB}"
If Not IsValidCode(Text1) Then Text1.BackColor = &HFF& Else Text1.BackColor = &HFFFFFF
End Sub
