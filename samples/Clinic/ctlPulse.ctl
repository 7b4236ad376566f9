VERSION 5.00
Object = "{6B7E6392-850A-101B-AFC0-4210102A8DA7}#1.3#0"; "COMCTL32.OCX"
Begin VB.UserControl ctlPulse 
   ClientHeight    =   1500
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   3000
   PropertyPages   =   "ctlPulse.ctx":0000
   ScaleHeight     =   1500
   ScaleWidth      =   3000
   ToolboxBitmap   =   "ctlPulse.ctx":000D
   Begin ComctlLib.Slider sldRate 
      Height          =   375
      Left            =   120
      TabIndex        =   1
      Top             =   960
      Width           =   2655
      _ExtentX        =   4683
      _ExtentY        =   661
      _Version        =   327682
      Min             =   30
      Max             =   220
      SelStart        =   70
      Value           =   70
   End
   Begin VB.Timer tmrBeat 
      Enabled         =   0   'False
      Interval        =   857
      Left            =   2400
      Top             =   120
   End
   Begin VB.Shape shpHeart 
      BackColor       =   &H000000FF&
      BackStyle       =   1  'Opaque
      Height          =   495
      Left            =   120
      Shape           =   3  'Circle
      Top             =   240
      Width           =   495
   End
   Begin VB.Label lblRate 
      BackStyle       =   0  'Transparent
      Caption         =   "70"
      BeginProperty Font 
         Name            =   "MS Sans Serif"
         Size            =   18
      EndProperty
      Height          =   495
      Left            =   840
      TabIndex        =   0
      Top             =   240
      Width           =   1335
   End
End
Attribute VB_Name = "ctlPulse"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = True
Attribute VB_Ext_KEY = "PropPageWizardRun" ,"Yes"
Option Explicit

Public Event Beat(ByVal intRate As Integer)
Public Event Alarm(ByVal intRate As Integer, ByRef blnHandled As Boolean)

Private m_Rate As Integer
Private m_UpperLimit%, m_LowerLimit%
Const m_def_Rate = 70
Const m_def_UpperLimit = 160, m_def_LowerLimit = 45

Private Sub sldRate_Change()
    Rate = sldRate.Value
End Sub

Private Sub tmrBeat_Timer()
    shpHeart.Visible = Not shpHeart.Visible
    If shpHeart.Visible Then RaiseEvent Beat(m_Rate)
End Sub

Public Property Get Rate() As Integer
Attribute Rate.VB_Description = "Beats per minute."
    Rate = m_Rate
End Property

Public Property Let Rate(ByVal New_Rate As Integer)
    Dim blnHandled As Boolean
    m_Rate = New_Rate
    tmrBeat.Interval = 60000 / m_Rate: tmrBeat.Enabled = True
    lblRate.Caption = m_Rate & " "
    If m_Rate > m_UpperLimit% Or m_Rate < m_LowerLimit% Then
        RaiseEvent Alarm(m_Rate, blnHandled)
        If Not blnHandled Then Beep: lblRate.ForeColor = vbRed
    Else
        lblRate.ForeColor = vbBlack
    End If
    PropertyChanged "Rate"
End Property

Private Sub UserControl_InitProperties()
    m_UpperLimit% = m_def_UpperLimit
    m_LowerLimit% = m_def_LowerLimit
    Rate = m_def_Rate
End Sub

Private Sub UserControl_ReadProperties(PropBag As PropertyBag)
    m_UpperLimit% = PropBag.ReadProperty("UpperLimit", m_def_UpperLimit)
    m_LowerLimit% = PropBag.ReadProperty("LowerLimit", m_def_LowerLimit)
    Rate = PropBag.ReadProperty("Rate", m_def_Rate)
End Sub

Private Sub UserControl_WriteProperties(PropBag As PropertyBag)
    Call PropBag.WriteProperty("Rate", m_Rate, m_def_Rate)
    Call PropBag.WriteProperty("UpperLimit", m_UpperLimit%, m_def_UpperLimit)
    Call PropBag.WriteProperty("LowerLimit", m_LowerLimit%, m_def_LowerLimit)
End Sub
