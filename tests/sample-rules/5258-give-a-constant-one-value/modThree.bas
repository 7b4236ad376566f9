Attribute VB_Name = "modThree"
Option Explicit
Private Const MAX_USERS = 12&
Private Const FLAGS = 255
Private Const BLOCK = 2
