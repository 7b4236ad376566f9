Option Explicit

Public Sub Finish()
    Close #n
    Close n
    rs.Close
    CloseAll
End Sub
