Option Explicit

Public Sub Tab()
    SendKeys "{TAB}"
    If moved Then SendKeys "{HOME}", True
End Sub
