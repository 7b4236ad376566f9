VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
   Begin VB.Menu mnuFileOpen 
      Caption         =   "mnuFileOpen"
   End
   Begin VB.TextBox FileName 
      Caption         =   "FileName"
      Height          =   375
      Left            =   120
   End
End
Attribute VB_Name = "frmOrders"
Option Explicit
