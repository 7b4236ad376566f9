Attribute VB_Name = "modGlobals"
' modGlobals: what everybody needs, and what nobody knew where else to put

Option Explicit
DefInt I-N

Public Declare Function GetUserName Lib "advapi32.dll" Alias "GetUserNameA" (ByVal lpBuffer As String, nSize As Long) As Long
Private Declare Sub Sleep Lib "kernel32" (ByVal dwMilliseconds As Long)
Declare Function GetTickCount Lib "kernel32" () As Long
Public Declare Function SHBrowse Lib "shell32.dll" _
    Alias "SHBrowseForFolderA" ( _
    lpBrowseInfo As Any, _
    ByVal lngFlags As Long) As Long

Global Const APP_NAME = "Billing", APP_VERSION As String = "3.4"
Public Const TAX_RATE# = 0.16, TAX_TEXT = "16 %, see also ""reduced"""
Const TEMP_DIR = "C:\TEMP\"

Public gcnMain As ADODB.Connection
Public gstrUser As String * 32, gintLevel%
Dim mcolFiles As New Collection
Global gvarCache(1 To 50, 0 To 2)

Public Type TAddress
    Street As String
    Zip As String * 5
    City As String      ' may be empty
    Phones(0 To 3) As String
End Type

Private Type TCacheEntry
    Key As Variant: Stamp As Date
    Rem an old field stood here
    Hits As Long
End Type

Public Enum InvoiceState
    isOpen
    isPaid = 10
    isCancelled = &HFF
End Enum

Sub Main()
    frmLogin.Show vbModal
    If Not frmLogin.LoginSucceeded Then End
    OpenDatabase
    frmMain.Show
End Sub

Public Sub OpenDatabase()
    Dim strConnect As String
    On Error GoTo Failed
    strConnect = "Provider=Microsoft.Jet.OLEDB.4.0;" & _
        "Data Source=" & App.Path & "\billing.mdb;" & _
        "Jet OLEDB:Database Password=sesam" ' not our best idea _
    Set gcnMain = New ADODB.Connection
Retry:
    gcnMain.Open strConnect
    Exit Sub
Failed:
    If Err.Number = -2147467259 Then Sleep 500: Resume Retry
    MsgBox "The database could not be opened: " & Err.Description, vbCritical, APP_NAME
    Stop
End Sub

Public Function InvoiceFileName(ByVal lngNumber As Long) As String
    InvoiceFileName = TEMP_DIR & "R" & Format$(lngNumber, "000000") & ".inv"
End Function

Public Sub OpenInvoiceFile(strFile As String)
    Dim intFile As Integer, strText As String
    If Dir$(strFile) = "" Then MsgBox "File '" & strFile & "' not found": Exit Sub
    intFile = FreeFile
    Open strFile For Input As #intFile
    Do While Not EOF(intFile)
        Line Input #intFile, strText
        mcolFiles.Add strText
    Loop
    Close #intFile
    Shell "notepad.exe " & strFile, vbNormalFocus
End Sub

Function MonthName_De$(ByVal intMonth%)
    Const NAMES = "Januar,Februar,März,April,Mai,Juni,Juli,August,September,Oktober,November,Dezember"
    MonthName_De$ = Split(NAMES, ",")(intMonth% - 1)
End Function

Static Sub Count_Call(ParamArray varNames() As Variant)
    Dim lngCalls As Long, varName
    For Each varName In varNames
        lngCalls = lngCalls + 1: Debug.Print lngCalls; ": "; varName ' a : in a comment
    Next
    While lngCalls > 1000: lngCalls = lngCalls - 1000: Wend
End Sub
