VERSION 5.00
Begin VB.Form frmMain 
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

#If VBA7 Then
Private Declare PtrSafe Function GetFocus Lib "user32" () As Long
Private Declare PtrSafe Sub Sleep Lib "kernel32" ()
#End If
