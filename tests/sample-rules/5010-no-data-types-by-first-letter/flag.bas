Option Explicit
DefInt A-Z
DefStr S

Public Sub Work()
End Sub
