VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.TextBox txtAge 
   End
   Begin VB.CommandButton cmdCancel 
      Caption         =   "Cancel"
      Cancel          =   -1  'True
      CausesValidation =   0   'False
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub txtAge_Validate(Cancel As Boolean)
    Cancel = Not IsNumeric(txtAge.Text)
End Sub

Private Sub cmdCancel_Click()
    Unload Me
End Sub
