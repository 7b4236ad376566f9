Option Explicit

Public Sub ReadAll()
    Do While Not rs.EOF
    rs.MoveNext
    Loop
    Wendy = 1
End Sub
