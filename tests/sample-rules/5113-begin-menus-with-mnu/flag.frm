VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
   Begin VB.Menu FileOpen 
      Caption         =   "FileOpen"
   End
End
Attribute VB_Name = "frmOrders"
Option Explicit
