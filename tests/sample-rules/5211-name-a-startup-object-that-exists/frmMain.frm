VERSION 5.00
Begin VB.Form frmMain 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "frmMain"
Option Explicit
