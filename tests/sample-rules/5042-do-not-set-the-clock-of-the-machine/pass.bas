Option Explicit

Public Sub Work(ByVal due As Date)
    due = Date
    order.Date = due
    If Time = due Then Beep
    dueDate = Date
End Sub
