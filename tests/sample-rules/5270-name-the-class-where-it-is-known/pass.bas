Option Explicit
Private excel As Excel.Application
Private box As VB.TextBox
