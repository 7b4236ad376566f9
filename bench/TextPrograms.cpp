#include "ScriptPrograms.h"

// What authors of rules do with texts every day, and where they would be surprised by a wait.

namespace {

constexpr ScriptProgram kPrograms[] = {
    {"Mid$ scan",
     R"(Sub Main()
    Dim text As String, i As Long, round As Long, found As Long
    For i = 1 To 100
        text = text & "If lngTotal > 0 Then GoTo ErrorHandler ' checked" & vbLf
    Next
    For round = 1 To 200
        For i = 1 To Len(text)
            If Mid$(text, i, 1) = "e" Then found = found + 1
        Next
    Next
    Debug.Print found
End Sub
)",
     R"(function Main()
    local text, found, sub = "", 0, string.sub
    for i = 1, 100 do
        text = text .. "If lngTotal > 0 Then GoTo ErrorHandler ' checked\n"
    end
    for round = 1, 200 do
        for i = 1, #text do
            if sub(text, i, i) == "e" then found = found + 1 end
        end
    end
    return found
end
)"},
    // The other language counts bytes, which is less work than to count characters.
    {"Mid$ scan beyond ASCII",
     R"(Sub Main()
    Dim text As String, i As Long, round As Long, found As Long
    For i = 1 To 1000
        text = text & "If lngTotal > 0 Then GoTo ErrorHandler ' gepr" & ChrW(252) & "ft" & vbLf
    Next
    For round = 1 To 20
        For i = 1 To Len(text)
            If Mid$(text, i, 1) = "e" Then found = found + 1
        Next
    Next
    Debug.Print found
End Sub
)",
     R"(function Main()
    local text, found, sub = "", 0, string.sub
    for i = 1, 1000 do
        text = text .. "If lngTotal > 0 Then GoTo ErrorHandler ' geprüft\n"
    end
    for round = 1, 20 do
        for i = 1, #text do
            if sub(text, i, i) == "e" then found = found + 1 end
        end
    end
    return found
end
)"},
    {"Mid$ here and there beyond ASCII",
     R"(Sub Main()
    Dim text As String, i As Long, total As Long
    For i = 1 To 1000
        text = text & "If lngTotal > 0 Then GoTo ErrorHandler ' gepr" & ChrW(252) & "ft" & vbLf
    Next
    For i = 1 To 1000000
        total = total + Len(Mid$(text, (i * 79) Mod 47000 + 1, 4))
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local text, total, sub = "", 0, string.sub
    for i = 1, 1000 do
        text = text .. "If lngTotal > 0 Then GoTo ErrorHandler ' geprüft\n"
    end
    for i = 1, 1000000 do
        local start = (i * 79) % 47000 + 1
        total = total + #sub(text, start, start + 3)
    end
    return total
end
)"},
    {"InStr with a start beyond ASCII",
     R"(Sub Main()
    Dim text As String, i As Long, place As Long, found As Long
    For i = 1 To 1000
        text = text & "If lngTotal > 0 Then GoTo ErrorHandler ' gepr" & ChrW(252) & "ft" & vbLf
    Next
    For i = 1 To 1000
        place = InStr(1, text, "GoTo")
        Do While place > 0
            found = found + 1
            place = InStr(place + 1, text, "GoTo")
        Loop
    Next
    Debug.Print found
End Sub
)",
     R"(function Main()
    local text, found, find = "", 0, string.find
    for i = 1, 1000 do
        text = text .. "If lngTotal > 0 Then GoTo ErrorHandler ' geprüft\n"
    end
    for i = 1, 1000 do
        local place = find(text, "GoTo", 1, true)
        while place do
            found = found + 1
            place = find(text, "GoTo", place + 1, true)
        end
    end
    return found
end
)"},
    {"Right$ beyond ASCII",
     R"(Sub Main()
    Dim text As String, i As Long, total As Long
    For i = 1 To 1000
        text = text & "If lngTotal > 0 Then GoTo ErrorHandler ' gepr" & ChrW(252) & "ft" & vbLf
    Next
    For i = 1 To 1000000
        If Right$(text, 2) = "t" & vbLf Then total = total + 1
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local text, total, sub = "", 0, string.sub
    for i = 1, 1000 do
        text = text .. "If lngTotal > 0 Then GoTo ErrorHandler ' geprüft\n"
    end
    for i = 1, 1000000 do
        if sub(text, -2) == "t" .. "\n" then total = total + 1 end
    end
    return total
end
)"},
    // Texts of the other language never change; its way is a table of characters.
    {"Mid statement",
     R"(Sub Main()
    Dim text As String, i As Long, round As Long, total As Long
    text = String$(20000, "a")
    For round = 1 To 50
        For i = 1 To 20000
            Mid(text, i, 1) = "b"
        Next
        total = total + InStr(text, "b") + Len(text)
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local total = 0
    local characters = {}
    for i = 1, 20000 do characters[i] = "a" end
    for round = 1, 50 do
        for i = 1, 20000 do
            characters[i] = "b"
        end
        local text = table.concat(characters)
        total = total + string.find(text, "b", 1, true) + #text
    end
    return total
end
)"},
    {"Mid statement beyond ASCII",
     R"(Sub Main()
    Dim text As String, i As Long, round As Long, total As Long
    text = String$(20000, ChrW(228))
    For round = 1 To 25
        For i = 1 To 20000
            Mid(text, i, 1) = "b"
        Next
        total = total + InStr(text, "b") + Len(text)
        For i = 1 To 20000
            Mid(text, i, 1) = ChrW(228)
        Next
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local total = 0
    local characters = {}
    for i = 1, 20000 do characters[i] = "ä" end
    for round = 1, 25 do
        for i = 1, 20000 do
            characters[i] = "b"
        end
        local text = table.concat(characters)
        total = total + string.find(text, "b", 1, true) + #text
        for i = 1, 20000 do
            characters[i] = utf8.char(228)
        end
    end
    return total
end
)"},
};

}  // namespace

const std::span<const ScriptProgram> kTextPrograms = kPrograms;
