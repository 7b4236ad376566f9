Option Explicit

Public Sub Work()
    Dim i As Long
    Dim n As Long, text As String
    n = Len("text") ' i
    Debug.Print n
End Sub
