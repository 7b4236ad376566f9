VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.Label Data1 
      Caption         =   "Data"
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
