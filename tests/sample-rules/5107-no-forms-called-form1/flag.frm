VERSION 5.00
Begin VB.Form Form1 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "Form1"
Option Explicit
