Attribute VB_Name = "modA"
Option Explicit

Public Declare Function GetFocus Lib "user32" () As Long
