Option Explicit

Public Sub ReadAll()
    While Not rs.EOF
    rs.MoveNext
    Wend
End Sub
