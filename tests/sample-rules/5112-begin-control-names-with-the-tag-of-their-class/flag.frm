VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
   Begin VB.CommandButton Save 
      Caption         =   "Save"
      Height          =   375
      Left            =   120
   End
   Begin VB.TextBox lblName 
      Caption         =   "lblName"
      Height          =   375
      Left            =   120
   End
End
Attribute VB_Name = "frmOrders"
Option Explicit
