Attribute VB_Name = "modDates"
Option Explicit
