VERSION 5.00
Object = "{0BA686C6-F7D3-101A-993E-0000C0EF6F5E}#1.0#0"; "THREED32.OCX"
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "frmOrders"
Option Explicit
