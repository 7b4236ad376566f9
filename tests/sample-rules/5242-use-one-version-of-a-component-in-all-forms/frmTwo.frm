VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.2#0"; "MSCOMCTL.OCX"
Begin VB.Form frmTwo 
   Caption         =   "Orders"
   ClientHeight    =   3000
End
Attribute VB_Name = "frmTwo"
Option Explicit
