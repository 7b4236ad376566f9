VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
   Begin VB.CommandButton cmdSave 
      Caption         =   "cmdSave"
      Height          =   375
      Left            =   120
   End
   Begin VB.TextBox Text3D 
      Caption         =   "Text3D"
      Height          =   375
      Left            =   120
   End
   Begin VB.Label Label1 
      Caption         =   "Label1"
      Height          =   375
      Left            =   120
   End
   Begin VB.Frame Frame2 
      Caption         =   "Frame2"
      Height          =   375
      Left            =   120
   End
End
Attribute VB_Name = "frmOrders"
Option Explicit
