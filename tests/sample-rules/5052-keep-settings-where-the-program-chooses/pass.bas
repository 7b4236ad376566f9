Option Explicit

Public Sub Work()
    SaveSettings
    settings.GetSetting "x"
End Sub
