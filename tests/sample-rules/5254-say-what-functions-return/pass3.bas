Option Explicit

' Calls itself, but never sets its result: a Sub, as another rule says.
Private Function Collect(ByVal folder As Object, ByVal names As Collection)
    Dim part As Object
    For Each part In folder.Folders
        Collect part, names
    Next
    names.Add folder.Name
End Function
