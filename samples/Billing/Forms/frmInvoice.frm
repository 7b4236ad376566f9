VERSION 5.00
Begin VB.Form frmInvoice 
   Caption         =   "Invoice"
   ClientHeight    =   4935
   ClientLeft      =   60
   ClientTop       =   450
   ClientWidth     =   7110
   BeginProperty Font 
      Name            =   "Tahoma"
      Size            =   8.25
      Charset         =   0
      Weight          =   400
      Underline       =   0   'False
      Italic          =   0   'False
      Strikethrough   =   0   'False
   EndProperty
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   4935
   ScaleWidth      =   7110
   Begin VB.Frame fraCustomer 
      Caption         =   "Customer"
      Height          =   1575
      Left            =   120
      TabIndex        =   4
      Top             =   120
      Width           =   6855
      Begin VB.PictureBox picLogo 
         BeginProperty Font 
            Name            =   "MS Sans Serif"
            Size            =   9.75
         EndProperty
         Height          =   855
         Left            =   5520
         ScaleHeight     =   795
         ScaleWidth      =   1035
         TabIndex        =   7
         Top             =   360
         Width           =   1095
         Begin VB.Image imgLogo 
            Height          =   615
            Left            =   120
            Stretch         =   -1  'True
            Top             =   120
            Width           =   855
         End
      End
      Begin VB.TextBox txtName 
         Height          =   315
         Left            =   1200
         TabIndex        =   5
         Text            =   "Müller"
         Top             =   360
         Width           =   3975
      End
      Begin VB.OptionButton optTerms 
         Caption         =   "30 days"
         Height          =   255
         Index           =   0
         Left            =   1200
         TabIndex        =   8
         Top             =   840
         Value           =   -1  'True
         Width           =   1575
      End
      Begin VB.OptionButton optTerms 
         Caption         =   "Advance payment"
         Height          =   255
         Index           =   1
         Left            =   2880
         TabIndex        =   9
         Top             =   840
         Width           =   1935
      End
      Begin VB.Label lblName 
         Caption         =   "Name:"
         Height          =   255
         Left            =   240
         TabIndex        =   6
         Top             =   390
         Width           =   855
      End
   End
   Begin VB.ListBox List1 
      Height          =   1815
      ItemData        =   "frmInvoice.frx":0000
      Left            =   120
      List            =   "frmInvoice.frx":0002
      TabIndex        =   3
      Top             =   1920
      Width           =   6855
   End
   Begin VB.CommandButton cmdAdd 
      Caption         =   "&Add line"
      Height          =   375
      Left            =   120
      TabIndex        =   2
      Top             =   3960
      Width           =   1455
   End
   Begin VB.CommandButton Command1 
      Caption         =   "&Total"
      Height          =   375
      Left            =   1680
      TabIndex        =   1
      Top             =   3960
      Width           =   1455
   End
   Begin VB.Label lblTotal 
      Alignment       =   1  'Right Justify
      Caption         =   "0,00 €"
      Height          =   255
      Left            =   4680
      TabIndex        =   0
      Top             =   4080
      Width           =   2295
   End
End
Attribute VB_Name = "frmInvoice"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private WithEvents mobjInvoice As clsInvoice
Attribute mobjInvoice.VB_VarHelpID = -1
Private mlngLines As Long, mblnDirty As Boolean

Private Enum LineColumn
    lcArticle = 0
    lcQuantity      ' pieces
    lcPrice = 2     ' in cents
End Enum

Private Sub Form_Load()
    Set mobjInvoice = New clsInvoice
    Call mobjInvoice.StartNew(Now)
    mblnDirty = False: mlngLines = 0
End Sub

Private Sub Form_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If Not mblnDirty Then Exit Sub
    Select Case MsgBox("Save the changes to """ & txtName.Text & """?", vbYesNoCancel + vbQuestion)
        Case vbYes
            SaveInvoice
        Case vbNo
            ' nothing: the changes are lost
        Case Else
            Cancel = True
    End Select
End Sub

Private Sub cmdAdd_Click()
    Dim strLine As String, curPrice As Currency
    Dim intQuantity%

    strLine = InputBox("Article; quantity; price", "Add a line", "Bolt M8; 100; 0.12")
    If Len(strLine) = 0 Then Exit Sub
    On Error Resume Next
    intQuantity% = CInt(Split(strLine, ";")(lcQuantity))
    curPrice = CCur(Split(strLine, ";")(lcPrice))
    If Err.Number <> 0 Then MsgBox "That is no line: " & strLine: GoTo Done
    mobjInvoice.AddLine Trim$(Split(strLine, ";")(lcArticle)), _
                        intQuantity%, _
                        curPrice
    List1.AddItem strLine
    mlngLines = mlngLines + 1: mblnDirty = True
Done:
    txtName.SetFocus
End Sub

Private Sub Command1_Click()
    Dim i, total
    total = 0
    For i = 1 To mobjInvoice.Count
        total = total + mobjInvoice.LineValue(i)
        If total > 100000 Then
            If optTerms(1).Value Then
                total = total * 0.97     ' early payment
            ElseIf mobjInvoice.Customer.IsGood And total > 250000 Then
                total = total * 0.98
            Else
                total = total
            End If
        End If
    Next
    lblTotal.Caption = Format$(total, "#,##0.00") & " €"
End Sub

Private Sub mobjInvoice_LineAdded(ByVal lngNumber As Long)
    frmMain.ShowStatus "Line " & lngNumber & " added"
End Sub

Private Sub optTerms_Click(Index As Integer)
    mblnDirty = True
End Sub

Private Sub SaveInvoice()
10  On Error GoTo ErrHandler
20  Open InvoiceFileName(mobjInvoice.Number) For Output As #1
30  Print #1, mobjInvoice.AsText
40  Close #1
50  mblnDirty = False
60  Exit Sub
ErrHandler:
    MsgBox "Error " & Err.Number & " in line " & Erl & ": " & Err.Description
    Close
End Sub
