VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.TextBox txtNotes 
      MultiLine       =   -1  'True
      ScrollBars      =   2  'Vertical
   End
   Begin VB.TextBox txtHint 
      MultiLine       =   -1  'True
      Locked          =   -1  'True
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
