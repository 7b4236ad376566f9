Option Explicit

Public Sub Work(ByVal due As Date)
    Date = due
    If late Then Time = #10:00:00 AM#
End Sub
