VERSION 5.00
Begin VB.Form frmMain 
   Caption         =   "Form 1099"
   Begin VB.CommandButton cmdSave 
      Caption         =   "&Save"
   End
   Begin VB.Label lblHidden 
      Caption         =   "Label1"
      Visible         =   0   'False
   End
   Begin VB.Label lblStep 
      Caption         =   "Step 1"
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
