Option Explicit

Public Sub Work(ByVal n As Long)
    Dim i As Long, j As Long
    If n > 0 Then
        For i = 1 To n
        For j = 1 To n
            Select Case i
                Case 1: If n = 1 Then Beep
                    Do While n > 3
                        If n = 7 Then Beep
                    Loop
            End Select
        Next j, i
        If n = 2 Then
            Beep
        ElseIf n = 3 Then
            Beep
        Else
            Beep
        End If
    End If
    For i = 1 To 2
        Do
            If n = 3 Then
                While n = 2
                Wend
            End If
        Loop Until n = 3
    Next
End Sub
