#include "ScriptPrograms.h"

namespace {

constexpr ScriptProgram kPrograms[] = {
    {"recursive Fibonacci",
     R"(Function Fib(ByVal n As Long) As Long
    If n < 2 Then
        Fib = n
    Else
        Fib = Fib(n - 1) + Fib(n - 2)
    End If
End Function
Sub Main()
    Debug.Print Fib(30)
End Sub
)",
     R"(local function fib(n)
    if n < 2 then
        return n
    else
        return fib(n - 1) + fib(n - 2)
    end
end
function Main()
    return fib(30)
end
)"},
    {"integer loops",
     R"(Sub Main()
    Dim i As Long, j As Long, total As Long
    For i = 1 To 5000
        For j = 1 To 3000
            total = (total + i * j) And 1048575
            If j Mod 3 = 0 Then total = total + 1
        Next
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local total = 0
    for i = 1, 5000 do
        for j = 1, 3000 do
            total = (total + i * j) & 1048575
            if j % 3 == 0 then total = total + 1 end
        end
    end
    return total
end
)"},
    {"integer loops, nothing declared",
     R"(Sub Main()
    total = 0&
    n = 0&
    Do While n < 5000000
        n = n + 1
        total = total + n Mod 7
        If total > 1000000 Then total = total - 1000000
    Loop
    Debug.Print total
End Sub
)",
     R"(function Main()
    local total = 0
    local n = 0
    while n < 5000000 do
        n = n + 1
        total = total + n % 7
        if total > 1000000 then total = total - 1000000 end
    end
    return total
end
)"},
    {"string building",
     R"(Sub Main()
    Dim i As Long, j As Long, total As Long, line As String
    For i = 1 To 20000
        line = ""
        For j = 1 To 40
            line = line & "item" & j & ";"
        Next
        total = total + Len(line)
    Next
    Debug.Print total
End Sub
)",
     R"(function Main()
    local total = 0
    for i = 1, 20000 do
        local line = ""
        for j = 1, 40 do
            line = line .. "item" .. j .. ";"
        end
        total = total + #line
    end
    return total
end
)"},
    {"string searching",
     R"(Sub Main()
    Dim text As String, i As Long, place As Long, found As Long
    For i = 1 To 100
        text = text & "If lngTotal > 0 Then GoTo ErrorHandler ' checked" & vbLf
    Next
    For i = 1 To 10000
        place = InStr(1, text, "GoTo")
        Do While place > 0
            found = found + 1
            place = InStr(place + 1, text, "GoTo")
        Loop
        If InStr(text, "GoSub") > 0 Then found = found + 1
    Next
    Debug.Print found
End Sub
)",
     R"(function Main()
    local text, found = "", 0
    local find = string.find
    for i = 1, 100 do
        text = text .. "If lngTotal > 0 Then GoTo ErrorHandler ' checked\n"
    end
    for i = 1, 10000 do
        local place = find(text, "GoTo", 1, true)
        while place do
            found = found + 1
            place = find(text, "GoTo", place + 1, true)
        end
        if find(text, "GoSub", 1, true) then found = found + 1 end
    end
    return found
end
)"},
    {"array sieve",
     R"(Sub Main()
    Const kHighest = 5000000
    Dim isComposite() As Boolean, i As Long, j As Long, count As Long
    ReDim isComposite(kHighest)
    For i = 2 To kHighest
        If Not isComposite(i) Then
            count = count + 1
            For j = i + i To kHighest Step i
                isComposite(j) = True
            Next
        End If
    Next
    Debug.Print count
End Sub
)",
     R"(function Main()
    local highest = 5000000
    local isComposite, count = {}, 0
    for i = 0, highest do isComposite[i] = false end
    for i = 2, highest do
        if not isComposite[i] then
            count = count + 1
            for j = i + i, highest, i do
                isComposite[j] = true
            end
        end
    end
    return count
end
)"},
    {"dictionary counting",
     R"(Sub Main()
    Dim words(999) As String, i As Long, j As Long, counts As Object
    For i = 0 To 999
        words(i) = "word" & i Mod 700
    Next
    Set counts = CreateObject("Scripting.Dictionary")
    For i = 1 To 2000
        For j = 0 To 999
            counts(words(j)) = counts(words(j)) + 1
        Next
    Next
    Debug.Print counts.Count * 1000000 + counts("word699") * 10 + counts("word7")
End Sub
)",
     R"(function Main()
    local words, counts = {}, {}
    for i = 0, 999 do
        words[i] = "word" .. i % 700
    end
    for i = 1, 2000 do
        for j = 0, 999 do
            counts[words[j]] = (counts[words[j]] or 0) + 1
        end
    end
    local count = 0
    for _ in pairs(counts) do count = count + 1 end
    return count * 1000000 + counts["word699"] * 10 + counts["word7"]
end
)"},
};

constexpr std::string_view kTypes[] = {"Assignment", "Declaration", "Call"};

std::string TypeOf(int number) {
    return std::string(kTypes[static_cast<std::size_t>(number) % std::size(kTypes)]);
}

/// Every third case compares with the type that is there, and none with the name that is.
std::string CaseInBasic(int number, std::string_view indent) {
    const std::string in(indent);
    return in + "kind = Dorvik.GetProperty(\"Type\")\n" + in +
           "name = Dorvik.GetProperty(\"Name\")\n" + in + "If kind = \"" + TypeOf(number) +
           "\" And name <> \"strName" + std::to_string(number) + "\" Then Count = Count + 1\n";
}

std::string CaseInLua(int number, std::string_view indent) {
    const std::string in(indent);
    return in + "local kind = Dorvik.GetProperty(\"Type\")\n" + in +
           "local name = Dorvik.GetProperty(\"Name\")\n" + in + "if kind == \"" + TypeOf(number) +
           "\" and name ~= \"strName" + std::to_string(number) + "\" then count = count + 1 end\n";
}

}  // namespace

const std::span<const ScriptProgram> kScriptPrograms = kPrograms;

std::string DispatcherInBasic(int calls) {
    std::string text = "Dim Count As Long\n"
                       "Sub RunScript(ByVal Number As Long)\n"
                       "    Dim kind, name\n"
                       "    Select Case Number\n";
    for (int number = 1; number <= kDispatcherCases; ++number) {
        text +=
            "        Case " + std::to_string(number) + "\n" + CaseInBasic(number, "            ");
    }
    text += "    End Select\n"
            "End Sub\n"
            "Sub Direct()\n"
            "    Dim i As Long, kind, name\n"
            "    For i = 1 To " +
            std::to_string(calls) + "\n" + CaseInBasic(0, "        ") +
            "    Next\n"
            "End Sub\n"
            "Sub Reset()\n"
            "    Count = 0\n"
            "End Sub\n"
            "Sub Hits()\n"
            "    Debug.Print Count\n"
            "End Sub\n";
    return text;
}

/// The language has no `Select Case`; a table of functions is its fastest way to branch by a number.
std::string DispatcherInLua(int calls) {
    std::string text = "local count = 0\nlocal cases = {\n";
    for (int number = 1; number <= kDispatcherCases; ++number) {
        text += "    function()\n" + CaseInLua(number, "        ") + "    end,\n";
    }
    text += "}\n"
            "function RunScript(number)\n"
            "    local case = cases[number]\n"
            "    if case then case() end\n"
            "end\n"
            "function Direct()\n"
            "    for i = 1, " +
            std::to_string(calls) + " do\n" + CaseInLua(0, "        ") +
            "    end\n"
            "end\n"
            "function Reset()\n"
            "    count = 0\n"
            "end\n"
            "function Hits()\n"
            "    return count\n"
            "end\n";
    return text;
}
