VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
   Begin VB.CommandButton Command1 
      Caption         =   "Command1"
      Height          =   375
      Left            =   120
   End
   Begin VB.TextBox Text3 
      Caption         =   "Text3"
      Height          =   375
      Left            =   120
   End
   Begin MSComctlLib.ListView ListView1 
      Height          =   375
      Left            =   120
   End
   Begin VB.Timer Timer1 
      Caption         =   "Timer1"
      Height          =   375
      Left            =   120
   End
End
Attribute VB_Name = "frmOrders"
Option Explicit
