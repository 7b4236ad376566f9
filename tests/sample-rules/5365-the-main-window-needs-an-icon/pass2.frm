VERSION 5.00
Begin VB.Form frmMain 
   Caption         =   "Order"
   BorderStyle     =   3  'Fixed Dialog
   ShowInTaskbar   =   0   'False
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
