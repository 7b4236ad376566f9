VERSION 5.00
Begin VB.UserControl uctGauge 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "uctGauge"
Option Explicit
