Option Explicit

Public Sub Finish()
    Close
    If done Then Close
End Sub
