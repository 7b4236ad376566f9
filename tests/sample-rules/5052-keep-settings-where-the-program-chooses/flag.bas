Option Explicit

Public Sub Work()
    SaveSetting "Ledger", "Main", "Left", 1
    x = GetSetting("Ledger", "Main", "Left")
End Sub
