#include "ScriptPrograms.h"

// What authors of rules write every day besides texts, and where they would be surprised by a wait.

namespace {

constexpr ScriptProgram kPrograms[] = {
    {"dictionary of numbers in a row",
     R"(Sub Main()
    Dim i As Long, round As Long, counts As Object, total As Long
    For round = 1 To 10
        Set counts = CreateObject("Scripting.Dictionary")
        For i = 1 To 50000
            counts(i) = i
        Next
        For i = 1 To 50000
            counts(i) = counts(i) + 1
        Next
        total = total + counts(50000)
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local total = 0
    for round = 1, 10 do
        local counts = {}
        for i = 1, 50000 do
            counts[i] = i
        end
        for i = 1, 50000 do
            counts[i] = counts[i] + 1
        end
        total = total + counts[50000]
    end
    return total
end
)"},
    {"dictionary of numbers here and there",
     R"(Sub Main()
    Dim i As Long, round As Long, counts As Object, key As Long, total As Long
    For round = 1 To 10
        Set counts = CreateObject("Scripting.Dictionary")
        For i = 1 To 50000
            key = (i * 7919) Mod 99991
            counts(key) = counts(key) + i
        Next
        For i = 1 To 50000
            key = (i * 7919) Mod 99991
            If counts.Exists(key) Then total = (total + counts(key)) And 1048575
        Next
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local total = 0
    for round = 1, 10 do
        local counts = {}
        for i = 1, 50000 do
            local key = (i * 7919) % 99991
            counts[key] = (counts[key] or 0) + i
        end
        for i = 1, 50000 do
            local key = (i * 7919) % 99991
            if counts[key] then total = (total + counts[key]) & 1048575 end
        end
    end
    return total
end
)"},
    {"Collection by index",
     R"(Sub Main()
    Dim list As New Collection, i As Long, round As Long, total As Long
    For i = 1 To 1000
        list.Add i
    Next
    For round = 1 To 1000
        For i = 1 To list.Count
            total = (total + list(i)) And 1048575
        Next
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local list, total = {}, 0
    for i = 1, 1000 do
        list[#list + 1] = i
    end
    for round = 1, 1000 do
        for i = 1, #list do
            total = (total + list[i]) & 1048575
        end
    end
    return total
end
)"},
    // A queue of the other language is a table with two places, since removing its first item moves all others.
    {"Collection as a queue",
     R"(Sub Main()
    Dim queue As New Collection, i As Long, total As Long
    For i = 1 To 100
        queue.Add i
    Next
    For i = 1 To 1000000
        total = (total + queue(1)) And 1048575
        queue.Remove 1
        queue.Add i
    Next
    Debug.Print total + queue.Count
End Sub
)",
     R"(function Main()
    local queue, first, last, total = {}, 1, 0, 0
    for i = 1, 100 do
        last = last + 1
        queue[last] = i
    end
    for i = 1, 1000000 do
        total = (total + queue[first]) & 1048575
        queue[first] = nil
        first = first + 1
        last = last + 1
        queue[last] = i
    end
    return total + (last - first + 1)
end
)"},
    {"error of Err.Raise trapped",
     R"(Sub Main()
    Dim i As Long, total As Long
    On Error GoTo Failed
    For i = 1 To 200000
        Err.Raise 1000, "Main", "No"
    Next
    Debug.Print total
    Exit Sub
Failed:
    total = total + Len(Err.Description)
    Resume Next
End Sub
)",
     R"(function Main()
    local total = 0
    local function fail() error("No", 0) end
    for i = 1, 200000 do
        local ok, text = pcall(fail)
        if not ok then total = total + #text end
    end
    return total
end
)"},
    {"error of an operation trapped",
     R"(Sub Main()
    Dim i As Long, total As Long, zero As Long
    On Error Resume Next
    For i = 1 To 200000
        total = i \ zero
        If Err.Number <> 0 Then total = i: Err.Clear
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local total, zero = 0, 0
    local function divide(a, b) return a // b end
    for i = 1, 200000 do
        local ok, quotient = pcall(divide, i, zero)
        if not ok then total = i end
    end
    return total
end
)"},
    {"error in a call trapped by the caller",
     R"(Function Half(ByVal n As Long) As Long
    If n Mod 2 <> 0 Then Err.Raise 5
    Half = n \ 2
End Function
Sub Main()
    Dim i As Long, total As Long
    On Error Resume Next
    For i = 1 To 200000
        total = total + Half(i)
        If Err.Number <> 0 Then total = (total + 1) And 1048575: Err.Clear
    Next
    Debug.Print total And 1048575
End Sub
)",
     R"(local function half(n)
    if n % 2 ~= 0 then error("Invalid procedure call or argument") end
    return n // 2
end
function Main()
    local total = 0
    for i = 1, 200000 do
        local ok, number = pcall(half, i)
        if ok then total = total + number else total = (total + 1) & 1048575 end
    end
    return total & 1048575
end
)"},
    {"error of a conversion trapped",
     R"(Sub Main()
    Dim i As Long, total As Long, text As String
    text = "abc"
    On Error Resume Next
    For i = 1 To 200000
        total = CLng(text)
        If Err.Number <> 0 Then total = i: Err.Clear
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local total, text = 0, "abc"
    local function convert(text) return math.tointeger(tonumber(text)) or error("Type mismatch") end
    for i = 1, 200000 do
        local ok, number = pcall(convert, text)
        if not ok then total = i end
    end
    return total
end
)"},
    {"unknown key of a Collection trapped",
     R"(Sub Main()
    Dim i As Long, total As Long, list As New Collection, item
    list.Add 1, "one"
    On Error Resume Next
    For i = 1 To 200000
        item = list("two")
        If Err.Number <> 0 Then total = i: Err.Clear
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local total, list = 0, {one = 1}
    local function find(key) return list[key] or error("Invalid procedure call or argument") end
    for i = 1, 200000 do
        local ok, item = pcall(find, "two")
        if not ok then total = i end
    end
    return total
end
)"},
    {"variants: whole numbers",
     R"(Sub Main()
    Dim i, j, n, total
    n = 3000
    total = 0
    For i = 1 To 500
        For j = 1 To n
            If j Mod 3 = 0 And i <> j Then
                total = total + j \ 3
            ElseIf total > 1000000 Then
                total = total - 1000000
            Else
                total = total - -1
            End If
        Next
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local n, total = 3000, 0
    for i = 1, 500 do
        for j = 1, n do
            if j % 3 == 0 and i ~= j then
                total = total + j // 3
            elseif total > 1000000 then
                total = total - 1000000
            else
                total = total - -1
            end
        end
    end
    return total
end
)"},
    {"variants: fractions",
     R"(Sub Main()
    Dim i, x, total
    total = 0
    For i = 1 To 2000000
        x = i / 4
        total = total + x * 2
        If total >= 1000000 Then total = total - 1000000
        If x = 0.5 Or x > 400000 Then total = total + 1
    Next
    Debug.Print Int(total)
End Sub
)",
     R"(function Main()
    local total = 0.0
    for i = 1, 2000000 do
        local x = i / 4
        total = total + x * 2
        if total >= 1000000 then total = total - 1000000 end
        if x == 0.5 or x > 400000 then total = total + 1 end
    end
    return math.tointeger(math.floor(total))
end
)"},
    {"variants: an array of them",
     R"(Sub Main()
    Dim i, j, list(99), total
    For i = 0 To 99
        list(i) = i
    Next
    total = 0
    For j = 1 To 20000
        For i = 1 To UBound(list)
            If list(i) > list(i - 1) Then total = total + list(i) - list(i - 1)
        Next
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local list, total = {}, 0
    for i = 0, 99 do
        list[i] = i
    end
    for j = 1, 20000 do
        for i = 1, #list do
            if list[i] > list[i - 1] then total = total + list[i] - list[i - 1] end
        end
    end
    return total
end
)"},
};

}  // namespace

const std::span<const ScriptProgram> kEverydayPrograms = kPrograms;
