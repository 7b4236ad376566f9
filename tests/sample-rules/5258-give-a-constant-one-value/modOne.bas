Attribute VB_Name = "modOne"
Option Explicit
Public Const MAX_USERS As Long = 12
Public Const FLAGS = &HFF
Private Const BLOCK = 1
