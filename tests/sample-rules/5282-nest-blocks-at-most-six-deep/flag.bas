Option Explicit

Public Sub Work(ByVal n As Long)
    Dim i As Long
    If n > 0 Then
        For i = 1 To n
            Select Case i
                Case 1
                    Do While n > 3
                        While n > 4
                            If n > 5 Then
                                If n = 7 Then
                                    Beep
                                End If
                                If n = 8 Then
                                    Beep
                                End If
                            End If
                        Wend
                    Loop
            End Select
        Next i
    End If
End Sub
