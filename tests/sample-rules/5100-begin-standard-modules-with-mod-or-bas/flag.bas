Attribute VB_Name = "Dates"
Option Explicit
