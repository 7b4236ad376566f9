Option Explicit

Public Sub Export()
    Set excel = CreateObject("Excel.Application")
    Set excel = GetObject(, "Excel.Application")
End Sub
