Option Explicit
#If False Then
Private StateOpen, StateClosed
#End If
Private cache As Object

Public Sub Work()
    Dim i As Long
    Dim text$
    Dim v As Variant
End Sub
