VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.Label lblTitle 
      Caption         =   "Orders"
      ForeColor       =   &H00800000&
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
