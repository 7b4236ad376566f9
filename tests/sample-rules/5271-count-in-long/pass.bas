Option Explicit
Private RowCount As Long
Private Country As Integer
