VERSION 5.00
Object = "{EAB22AC0-30C1-11CF-A7EB-0000C05BAE0B}#1.1#0"; "ieframe.dll"
Begin VB.Form frmOrders 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "frmOrders"
Option Explicit
