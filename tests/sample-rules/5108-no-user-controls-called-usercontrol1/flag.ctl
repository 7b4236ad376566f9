VERSION 5.00
Begin VB.UserControl UserControl1 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "UserControl1"
Option Explicit
