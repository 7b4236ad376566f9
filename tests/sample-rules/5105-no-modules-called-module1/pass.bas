Attribute VB_Name = "Module1Protocol"
Option Explicit
