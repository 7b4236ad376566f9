Attribute VB_Name = "modTwo"
Option Explicit
Private Const MAX_USERS As Long = 20
