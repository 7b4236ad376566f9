VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.TextBox txtKey 
      Left            =   -20
      Width           =   1200
      Top             =   120
      Height          =   300
   End
   Begin VB.TextBox txtTab 
      Left            =   -74880
      Width           =   1200
      Top             =   120
      Height          =   300
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
