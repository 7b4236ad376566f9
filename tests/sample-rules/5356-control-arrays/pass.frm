VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.CommandButton cmdPage 
      Caption         =   "&1"
      TabIndex        =   0
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
