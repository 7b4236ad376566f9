VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.CommandButton cmdSave 
      Caption         =   "Command1"
   End
   Begin VB.TextBox txtLine1 
   End
   Begin VB.Label Label1 
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
