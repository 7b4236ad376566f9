Attribute VB_Name = "modClinic"
Option Explicit
Public Enum Ward
  wdIntensive = 1: wdSurgery
  wdMaternity
End Enum
Public gcolPatients As Collection
#If DEBUGGING Then
Private Const LOG_FILE = "C:\clinic.log"
#End If

Public Function WardName(ByVal lngWard As Ward) As String
    Select Case lngWard
    Case wdIntensive: WardName = "Intensivstation"
    Case wdSurgery: WardName = "Chirurgie"
    Case wdMaternity: WardName = "Geburtshilfe (Gynäkologie)"
    Case Else: WardName = "?"
    End Select
End Function

Public Sub WriteLog(strText$)
On Error Resume Next
Dim f: f = FreeFile
Open "C:\clinic.log" For Append As #f
Print #f, Now; strText$
Close #f
Kill "C:\clinic.old"
End Sub
