Option Explicit
Private curPrice As Currency
Private priceFactor As Double
Private width As Single
