VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
   Begin VB.Label lblName 
      Caption         =   "lblName"
      Height          =   375
      Left            =   120
   End
   Begin VB.Line linTop 
      Caption         =   "linTop"
      Height          =   375
      Left            =   120
   End
   Begin VB.Image imgLogo 
      Caption         =   "imgLogo"
      Height          =   375
      Left            =   120
   End
End
Attribute VB_Name = "frmOrders"
Option Explicit
