Attribute VB_Name = "modPricing"
Option Explicit
Option Base 1

'Prices are in cents, quantities in pieces.
'If you change anything here, tell the warehouse.

Private mdblFactor() As Double, mblnLoaded As Boolean

Public Function PriceOf(strArticle As String, Optional ByVal intQuantity As Integer = 1, Optional strList As String = "A, B") As Currency
    Dim curPrice As Currency
    Dim rs As ADODB.Recordset

    Set rs = gcnMain.Execute("SELECT Price, GroupNo FROM Articles WHERE Name='" & strArticle & "'")
    If rs.EOF Then PriceOf = 0: Exit Function
    curPrice = rs!Price
    Select Case intQuantity
        Case 1 To 9
        Case 10 To 99: curPrice = curPrice * 0.95
        Case Is >= 1000
            GoSub BigOrder
        Case Else
            curPrice = curPrice * 0.9
    End Select
    Select Case rs!GroupNo
    Case 1, 2: curPrice = curPrice + 5
    Case 3: If intQuantity > 10 Then curPrice = curPrice - 1 Else curPrice = curPrice + 1
    Case 4
        On intQuantity GoTo One, Two, Three
    End Select
One:
Two:
    PriceOf = curPrice * intQuantity
    Exit Function
Three:
    Let PriceOf = curPrice * 3
    Exit Function
BigOrder:
    Do Until curPrice < 100000 Or intQuantity = 0
        curPrice = curPrice - 1
        intQuantity = intQuantity - 1
    Loop
    Return
End Function

Public Sub LoadFactors()
Dim n
ReDim mdblFactor(12)
For n = 1 To 12
mdblFactor(n) = IIf(n < 7, 1.02, 0.99)
If n = 12 Then
mblnLoaded = True
End If
Next n
End Sub

Friend_Of_Mine:
Public Function Discount(ByVal curTotal As Currency) As Double
    If curTotal > 1000 Then
    If curTotal > 5000 Then
    If curTotal > 20000 Then
    If curTotal > 50000 Then
    Discount = 0.1
    Else
    Discount = 0.07
    End If
    Else
    Discount = 0.05
    End If
    Else
    Discount = 0.02
    End If
    End If
End Function
