Option Explicit
Public Sub WorkA0()
End Sub
Public Sub WorkA1()
End Sub
Public Sub WorkA2()
End Sub
Public Sub WorkA3()
End Sub
Public Sub WorkA4()
End Sub
Public Sub WorkA5()
End Sub
Public Sub WorkA6()
End Sub
Public Sub WorkA7()
End Sub
Public Sub WorkA8()
End Sub
Public Sub WorkA9()
End Sub
Public Sub WorkB0()
End Sub
Public Sub WorkB1()
End Sub
Public Sub WorkB2()
End Sub
Public Sub WorkB3()
End Sub
Public Sub WorkB4()
End Sub
Public Sub WorkB5()
End Sub
Public Sub WorkB6()
End Sub
Public Sub WorkB7()
End Sub
Public Sub WorkB8()
End Sub
Public Sub WorkB9()
End Sub
Public Sub WorkC0()
End Sub
Public Sub WorkC1()
End Sub
Public Sub WorkC2()
End Sub
Public Sub WorkC3()
End Sub
Public Sub WorkC4()
End Sub
Public Sub WorkC5()
End Sub
Public Sub WorkC6()
End Sub
Public Sub WorkC7()
End Sub
Public Sub WorkC8()
End Sub
Public Sub WorkC9()
End Sub
Public Sub WorkD0()
End Sub
Public Sub WorkD1()
End Sub
Public Sub WorkD2()
End Sub
Public Sub WorkD3()
End Sub
Public Sub WorkD4()
End Sub
Public Sub WorkD5()
End Sub
Public Sub WorkD6()
End Sub
Public Sub WorkD7()
End Sub
Public Sub WorkD8()
End Sub
Public Sub WorkD9()
End Sub
Public Sub WorkE0()
End Sub
Public Sub WorkE1()
End Sub
Public Sub WorkE2()
End Sub
Public Sub WorkE3()
End Sub
Public Sub WorkE4()
End Sub
Public Sub WorkE5()
End Sub
Public Sub WorkE6()
End Sub
Public Sub WorkE7()
End Sub
Public Sub WorkE8()
End Sub
Public Sub WorkE9()
End Sub
Public Sub WorkF0()
End Sub
Public Sub WorkF1()
End Sub
Public Sub WorkF2()
End Sub
Public Sub WorkF3()
End Sub
Public Sub WorkF4()
End Sub
Public Sub WorkF5()
End Sub
Public Sub WorkF6()
End Sub
Public Sub WorkF7()
End Sub
Public Sub WorkF8()
End Sub
Public Sub WorkF9()
End Sub
Public Sub WorkG0()
End Sub
Public Sub WorkG1()
End Sub
Public Sub WorkG2()
End Sub
Public Sub WorkG3()
End Sub
Public Sub WorkG4()
End Sub
Public Sub WorkG5()
End Sub
Public Sub WorkG6()
End Sub
Public Sub WorkG7()
End Sub
Public Sub WorkG8()
End Sub
Public Sub WorkG9()
End Sub
Public Sub WorkH0()
End Sub
Public Sub WorkH1()
End Sub
Public Sub WorkH2()
End Sub
Public Sub WorkH3()
End Sub
Public Sub WorkH4()
End Sub
Public Sub WorkH5()
End Sub
Public Sub WorkH6()
End Sub
Public Sub WorkH7()
End Sub
Public Sub WorkH8()
End Sub
Public Sub WorkH9()
End Sub
Public Sub WorkI0()
End Sub
Public Sub WorkI1()
End Sub
Public Sub WorkI2()
End Sub
Public Sub WorkI3()
End Sub
Public Sub WorkI4()
End Sub
Public Sub WorkI5()
End Sub
Public Sub WorkI6()
End Sub
Public Sub WorkI7()
End Sub
Public Sub WorkI8()
End Sub
Public Sub WorkI9()
End Sub
Public Sub WorkJ0()
End Sub
Public Sub WorkJ1()
End Sub
Public Sub WorkJ2()
End Sub
Public Sub WorkJ3()
End Sub
Public Sub WorkJ4()
End Sub
Public Sub WorkJ5()
End Sub
Public Sub WorkJ6()
End Sub
Public Sub WorkJ7()
End Sub
Public Sub WorkJ8()
End Sub
Public Sub WorkJ9()
End Sub
