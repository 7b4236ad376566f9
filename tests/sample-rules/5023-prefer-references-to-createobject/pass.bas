Option Explicit

Public Sub Export()
    n = GetObject(hBitmap, 24, info)
    Set excel = New Excel.Application
    Set page = server.CreateObject("x")
End Sub
