Option Explicit

Public Sub Wait()
    engine.DoEvents
    DoEventsLater
End Sub
