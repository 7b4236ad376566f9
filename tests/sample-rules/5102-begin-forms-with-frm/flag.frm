VERSION 5.00
Begin VB.Form Orders 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "Orders"
Option Explicit
