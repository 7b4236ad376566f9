VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
   Begin VB.CommandButton cmdSave 
      Caption         =   "cmdSave"
      Height          =   375
      Left            =   120
   End
   Begin VB.TextBox txtName 
      Caption         =   "txtName"
      Height          =   375
      Left            =   120
   End
   Begin VB.ComboBox cmbKind 
      Caption         =   "cmbKind"
      Height          =   375
      Left            =   120
   End
   Begin VB.Menu mnuFile 
      Caption         =   "mnuFile"
   End
End
Attribute VB_Name = "frmOrders"
Option Explicit
