Option Explicit

Public Sub Work()
    Debug.Print 0
    ' and on

    Debug.Print 1
    ' and on

    Debug.Print 2
    ' and on

    Debug.Print 3
    ' and on

    Debug.Print 4
    ' and on

    Debug.Print 5
    ' and on

    Debug.Print 6
    ' and on

    Debug.Print 7
    ' and on

    Debug.Print 8
    ' and on

    Debug.Print 9
    ' and on

    Debug.Print 10
    ' and on

    Debug.Print 11
    ' and on

    Debug.Print 12
    ' and on

    Debug.Print 13
    ' and on

    Debug.Print 14
    ' and on

    Debug.Print 15
    ' and on

    Debug.Print 16
    ' and on

    Debug.Print 17
    ' and on

    Debug.Print 18
    ' and on

    Debug.Print 19
    ' and on

    Debug.Print 20
    ' and on

    Debug.Print 21
    ' and on

    Debug.Print 22
    ' and on

    Debug.Print 23
    ' and on

    Debug.Print 24
    ' and on

    Debug.Print 25
    ' and on

    Debug.Print 26
    ' and on

    Debug.Print 27
    ' and on

    Debug.Print 28
    ' and on

    Debug.Print 29
    ' and on

    Debug.Print 30
    ' and on

    Debug.Print 31
    ' and on

    Debug.Print 32
    ' and on

    Debug.Print 33
    ' and on

    Debug.Print 34
    ' and on

    Debug.Print 35
    ' and on

    Debug.Print 36
    ' and on

    Debug.Print 37
    ' and on

    Debug.Print 38
    ' and on

    Debug.Print 39
    ' and on

    Debug.Print 40
    ' and on

    Debug.Print 41
    ' and on

    Debug.Print 42
    ' and on

    Debug.Print 43
    ' and on

    Debug.Print 44
    ' and on

    Debug.Print 45
    ' and on

    Debug.Print 46
    ' and on

    Debug.Print 47
    ' and on

    Debug.Print 48
    ' and on

    Debug.Print 49
    ' and on

    Debug.Print 50
    ' and on

    Debug.Print 51
    ' and on

    Debug.Print 52
    ' and on

    Debug.Print 53
    ' and on

    Debug.Print 54
    ' and on

    Debug.Print 55
    ' and on

    Debug.Print 56
    ' and on

    Debug.Print 57
    ' and on

    Debug.Print 58
    ' and on

    Debug.Print 59
    ' and on

    Debug.Print 60
    ' and on

    Debug.Print 61
    ' and on

    Debug.Print 62
    ' and on

    Debug.Print 63
    ' and on

    Debug.Print 64
    ' and on

    Debug.Print 65
    ' and on

    Debug.Print 66
    ' and on

    Debug.Print 67
    ' and on

    Debug.Print 68
    ' and on

    Debug.Print 69
    ' and on

    Debug.Print 70
    ' and on

    Debug.Print 71
    ' and on

    Debug.Print 72
    ' and on

    Debug.Print 73
    ' and on

    Debug.Print 74
    ' and on

    Debug.Print 75
    ' and on

    Debug.Print 76
    ' and on

    Debug.Print 77
    ' and on

    Debug.Print 78
    ' and on

    Debug.Print 79
    ' and on

    Debug.Print 80
    ' and on

    Debug.Print 81
    ' and on

    Debug.Print 82
    ' and on

    Debug.Print 83
    ' and on

    Debug.Print 84
    ' and on

    Debug.Print 85
    ' and on

    Debug.Print 86
    ' and on

    Debug.Print 87
    ' and on

    Debug.Print 88
    ' and on

    Debug.Print 89
    ' and on

    Debug.Print 90
    ' and on

    Debug.Print 91
    ' and on

    Debug.Print 92
    ' and on

    Debug.Print 93
    ' and on

    Debug.Print 94
    ' and on

    Debug.Print 95
    ' and on

    Debug.Print 96
    ' and on

    Debug.Print 97
    ' and on

    Debug.Print 98
    ' and on

    Debug.Print 99
    ' and on

    Debug.Print 100
    ' and on

    Debug.Print 101
    ' and on

    Debug.Print 102
    ' and on

    Debug.Print 103
    ' and on

    Debug.Print 104
    ' and on

    Debug.Print 105
    ' and on

    Debug.Print 106
    ' and on

    Debug.Print 107
    ' and on

    Debug.Print 108
    ' and on

    Debug.Print 109
    ' and on

    Debug.Print 110
    ' and on

    Debug.Print 111
    ' and on

    Debug.Print 112
    ' and on

    Debug.Print 113
    ' and on

    Debug.Print 114
    ' and on

    Debug.Print 115
    ' and on

    Debug.Print 116
    ' and on

    Debug.Print 117
    ' and on

End Sub
