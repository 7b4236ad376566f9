VERSION 5.00
Begin VB.Form frmMain 
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_Load()
    Dim source As Object
    source.Open "SELECT Name FROM Customers ORDER BY Name"
End Sub
