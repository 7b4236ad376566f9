VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.TextBox txtPassword 
      PasswordChar    =   "*"
   End
   Begin VB.TextBox txtPassenger 
   End
   Begin VB.Label lblPassword 
      Caption         =   "Password"
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
