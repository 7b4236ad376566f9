VERSION 5.00
Begin VB.UserControl Gauge 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "Gauge"
Option Explicit
