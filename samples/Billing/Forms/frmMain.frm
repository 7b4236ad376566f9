VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Object = "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"; "COMDLG32.OCX"
Begin VB.MDIForm frmMain 
   BackColor       =   &H8000000C&
   Caption         =   "Billing - Müller & Söhne"
   ClientHeight    =   6390
   ClientLeft      =   165
   ClientTop       =   735
   ClientWidth     =   9240
   LinkTopic       =   "MDIForm1"
   StartUpPosition =   3  'Windows Default
   Begin MSComDlg.CommonDialog dlgFile 
      Left            =   360
      Top             =   840
      _ExtentX        =   847
      _ExtentY        =   847
      _Version        =   393216
      Filter          =   "Invoices (*.inv)|*.inv|All files|*.*"
   End
   Begin MSComctlLib.StatusBar sbrStatus 
      Align           =   2  'Align Bottom
      Height          =   375
      Left            =   0
      TabIndex        =   0
      Top             =   6015
      Width           =   9240
      _ExtentX        =   16298
      _ExtentY        =   661
      _Version        =   393216
      BeginProperty Panels {8E3867A5-8586-11D1-B16A-00C0F0283628} 
         NumPanels       =   2
         BeginProperty Panel1 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            AutoSize        =   1
            Object.Width           =   11959
            Text            =   "Ready"
         EndProperty
         BeginProperty Panel2 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            Style           =   6
         EndProperty
      EndProperty
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileNew 
         Caption         =   "&New invoice"
         Shortcut        =   ^N
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "Recent 1"
         Index           =   0
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "Recent 2"
         Index           =   1
      End
      Begin VB.Menu mnuFileBar 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuWindow 
      Caption         =   "&Window"
      WindowList      =   -1  'True
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
'---------------------------------------------------------------
' frmMain - the window around all invoices
' 14.03.1999  H. Krüger   first version
' 02.11.2001  J. Ångström recent files
'---------------------------------------------------------------
Option Explicit

Private Const MAX_RECENT As Integer = 2
Private mstrRecent(0 To MAX_RECENT - 1) As String

Private Sub MDIForm_Load()
    Dim intIndex As Integer

    On Error GoTo ErrHandler
    For intIndex = 0 To MAX_RECENT - 1
        mstrRecent(intIndex) = GetSetting(App.Title, "Recent", CStr(intIndex), "")
        mnuFileRecent(intIndex).Visible = (Len(mstrRecent(intIndex)) > 0)
        mnuFileRecent(intIndex).Caption = "&" & intIndex + 1 & "  " & mstrRecent(intIndex)
    Next intIndex
    ShowStatus "Ready"
    Exit Sub

ErrHandler:
    MsgBox "Could not read the settings: " & Err.Description, vbExclamation
    Resume Next
End Sub

Private Sub mnuFileNew_Click()
    Dim frm As New frmInvoice
    frm.Show
    DoEvents
    ShowStatus "New invoice": Beep
End Sub

Private Sub mnuFileRecent_Click(Index As Integer)
    ' The file may be gone since the last time: nobody checks that here.
    OpenInvoiceFile mstrRecent(Index)
End Sub

Private Sub mnuFileExit_Click()
    Unload Me
    End
End Sub

Public Sub ShowStatus(ByVal strText As String, Optional ByVal blnBeep As Boolean = False)
    sbrStatus.Panels(1).Text = strText
    If blnBeep Then Beep Else Debug.Print "status: " & strText
End Sub
