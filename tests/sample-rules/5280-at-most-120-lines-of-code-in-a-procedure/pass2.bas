Option Explicit

' Long, but with more than 30 paths: told by another rule.
Public Sub Work(ByVal n As Long)
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
    If n = 1 Then
        n = 2
    End If
End Sub
