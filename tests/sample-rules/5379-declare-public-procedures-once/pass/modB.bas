Attribute VB_Name = "modB"
Option Explicit

Private Declare Function GetFocus Lib "user32" () As Long
