Option Explicit
Private RowCount As Integer
