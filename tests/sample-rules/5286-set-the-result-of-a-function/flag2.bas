Option Explicit

Private Function Collect(ByVal folder As Object, ByVal names As Collection) As Boolean
    Dim part As Object
    For Each part In folder.Folders
        Collect part, names
    Next
    names.Add folder.Name
End Function
