Attribute VB_Name = "modB"
Option Explicit

Public Declare Function GetFocus Lib "user32" () As Long
