Option Explicit
Private valuea0 As Long
Private valuea1 As Long
Private valuea2 As Long
Private valuea3 As Long
Private valuea4 As Long
Private valuea5 As Long
Private valuea6 As Long
Private valuea7 As Long
Private valuea8 As Long
Private valuea9 As Long
Private valueb0 As Long
Private valueb1 As Long
Private valueb2 As Long
Private valueb3 As Long
Private valueb4 As Long
Private valueb5 As Long
Private valueb6 As Long
Private valueb7 As Long
Private valueb8 As Long
Private valueb9 As Long
Private valuec0 As Long
Private valuec1 As Long
Private valuec2 As Long
Private valuec3 As Long
Private valuec4 As Long
Private valuec5 As Long
Private valuec6 As Long
Private valuec7 As Long
Private valuec8 As Long
Private valuec9 As Long
Private valued0 As Long
Private valued1 As Long
Private valued2 As Long
Private valued3 As Long
Private valued4 As Long
Private valued5 As Long
Private valued6 As Long
Private valued7 As Long
Private valued8 As Long
Private valued9 As Long
#If False Then
Private StateOpen, StateClosed
#End If
