Option Explicit
Private mlngCount As Long
Private m_Total As Currency
