VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
   Begin VB.CommandButton cmdSave 
      Caption         =   "cmdSave"
      Height          =   375
      Left            =   120
   End
End
Attribute VB_Name = "frmOrders"
Option Explicit

Private Sub cmdSave_Click()
    If n = 0 Then
        Beep
        n = n + 1
    End If
    If n = 1 Then
        Beep
        n = n + 2
    End If
    If n = 2 Then
        Beep
        n = n + 3
    End If
    If n = 3 Then
        Beep
        n = n + 4
    End If
    If n = 4 Then
        Beep
        n = n + 5
    End If
    If n = 5 Then
        Beep
        n = n + 6
    End If
    If n = 6 Then
        Beep
        n = n + 7
    End If
    If n = 7 Then
        Beep
        n = n + 8
    End If
    If n = 8 Then
        Beep
        n = n + 9
    End If
    If n = 9 Then
        Beep
        n = n + 10
    End If
    If n = 10 Then
        Beep
        n = n + 11
    End If
    If n = 11 Then
        Beep
        n = n + 12
    End If
End Sub
