Attribute VB_Name = "modCodes"
Option Explicit
Option Compare Text

' Article codes: two letters for the group, six digits, one check digit.
Private Const WEIGHTS = "7317317"

Public Function IsValidCode(ByVal strCode As String) As Boolean
    Dim i As Integer, lngSum As Long
    If Not strCode Like "[A-Z][A-Z]#######" Then GoTo Invalid
    For i = 1 To 6
        lngSum = lngSum + Val(Mid$(strCode, i + 2, 1)) * Val(Mid$(WEIGHTS, i, 1))
    Next i
    IsValidCode = (lngSum Mod 10 = Val(Right$(strCode, 1)))
    Exit Function
Invalid:
    IsValidCode = False
End Function

Public Function GroupName(ByVal strCode As String) As String
    #If DEBUGGING Then
        Debug.Print "GroupName "; strCode
    #End If
    Select Case Left$(strCode, 2)
        Case "SC": GroupName = "Schrauben"
        Case "MU": GroupName = "Muttern"
        Case "SE", "SR": GroupName = "Scheiben, Ringe"
        Case Else
            Err.Raise 5, , "no group for '" & strCode & "'"
    End Select
End Function
