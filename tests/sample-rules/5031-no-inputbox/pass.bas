Option Explicit

Public Sub Ask()
    frmAsk.Show vbModal
    text = ui.InputBox("x")
End Sub
