VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.Label lblName 
   End
   Begin VB.Label LabelOf1900 
   End
   Begin VB.Line linTop 
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
