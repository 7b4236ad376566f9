VERSION 5.00
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "frmOrders"
Option Explicit
