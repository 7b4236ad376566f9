Option Explicit

Public Sub StartTimer()
    text = "AddressOf"
    addressOfOwner = 1
End Sub
