Option Explicit

Public Sub Start()
    Finish 1
    phone.Call 5
    CallBack n
End Sub
