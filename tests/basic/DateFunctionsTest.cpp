#include "BuiltinCalls.h"

#include <gtest/gtest.h>

namespace dorvik::basic {

using namespace sample;

TEST(DateFunctions, TheClock) {
    ExpectCalls({
        {"Now", {}, "Date 1/1/2000 6:00:00 PM"},
        {"Date", {}, "Date 1/1/2000"},
        {"Time", {}, "Date 6:00:00 PM"},
        {"Timer", {}, "Single 64800"},
        {"Date$", {}, "String 01-01-2000"},
        {"Time$", {}, "String 18:00:00"},
    });
}

TEST(DateFunctions, DateSerialCarriesOver) {
    ExpectCalls({
        {"DateSerial", {I(2000), I(1), I(31)}, "Date 1/31/2000"},
        {"DateSerial", {I(2000), I(2), I(30)}, "Date 3/1/2000"},
        {"DateSerial", {I(2000), I(13), I(1)}, "Date 1/1/2001"},
        {"DateSerial", {I(2000), I(1), I(0)}, "Date 12/31/1999"},
        {"DateSerial", {I(2000), I(0), I(1)}, "Date 12/1/1999"},
        {"DateSerial", {I(2000), I(-11), I(1)}, "Date 1/1/1999"},
        {"DateSerial", {I(2000), I(1), I(-1)}, "Date 12/30/1999"},
        {"DateSerial", {I(0), I(1), I(1)}, "Date 1/1/2000"},
        {"DateSerial", {I(29), I(1), I(1)}, "Date 1/1/2029"},
        {"DateSerial", {I(30), I(1), I(1)}, "Date 1/1/1930"},
        {"DateSerial", {I(99), I(1), I(1)}, "Date 1/1/1999"},
        {"DateSerial", {I(100), I(1), I(1)}, "Date 1/1/100"},
        {"DateSerial", {I(1900), I(2), I(29)}, "Date 3/1/1900"},
        {"DateSerial", {I(9999), I(12), I(31)}, "Date 12/31/9999"},
        {"DateSerial", {I(9999), I(12), I(32)}, "error 5"},
        {"DateSerial", {I(100), I(1), I(0)}, "error 5"},
        {"DateSerial", {L(40000), I(1), I(1)}, "error 6"},
        {"DateSerial", {I(2000), L(40000), I(1)}, "error 6"},
        {"DateSerial", {N(), I(1), I(1)}, "error 94"},
    });
}

TEST(DateFunctions, TimeSerialCarriesOver) {
    ExpectCalls({
        {"TimeSerial", {I(17), I(30), I(5)}, "Date 5:30:05 PM"},
        {"TimeSerial", {I(6), I(-15), I(0)}, "Date 5:45:00 AM"},
        {"TimeSerial", {I(0), I(75), I(0)}, "Date 1:15:00 AM"},
        {"TimeSerial", {I(25), I(0), I(0)}, "Date 12/31/1899 1:00:00 AM"},
        {"TimeSerial", {L(40000), I(0), I(0)}, "error 6"},
    });
}

TEST(DateFunctions, DateValueAndTimeValueTakeOnePart) {
    ExpectCalls({
        {"DateValue", {X("1/31/2000 5:30 PM")}, "Date 1/31/2000"},
        {"DateValue", {X("Jan 31, 2000")}, "Date 1/31/2000"},
        {"DateValue", {T(36526.75)}, "Date 1/1/2000"},
        {"DateValue", {X("x")}, "error 13"},
        {"DateValue", {X("")}, "error 13"},
        {"DateValue", {N()}, "error 94"},
        {"TimeValue", {X("1/31/2000 5:30 PM")}, "Date 5:30:00 PM"},
        {"TimeValue", {X("17:05")}, "Date 5:05:00 PM"},
        {"TimeValue", {T(-1.25)}, "Date 6:00:00 AM"},
        {"TimeValue", {X("25:00")}, "error 13"},
    });
}

TEST(DateFunctions, PartsOfADate) {
    const Value date = At("1/31/2000 17:30:05");
    ExpectCalls({
        {"Year", {date}, "Integer 2000"},
        {"Month", {date}, "Integer 1"},
        {"Day", {date}, "Integer 31"},
        {"Hour", {date}, "Integer 17"},
        {"Minute", {date}, "Integer 30"},
        {"Second", {date}, "Integer 5"},
        {"Year", {X("2/1/1999")}, "Integer 1999"},
        {"Year", {I(0)}, "Integer 1899"},
        {"Day", {D(-1.25)}, "Integer 29"},
        {"Hour", {D(-1.25)}, "Integer 6"},
        {"Year", {X("x")}, "error 13"},
        {"Year", {D(1e7)}, "error 6"},
        {"Weekday", {date}, "Integer 2"},
        {"Weekday", {date, I(2)}, "Integer 1"},
        {"Weekday", {date, I(0)}, "Integer 2"},
        {"Weekday", {date, I(3)}, "Integer 7"},
        {"Weekday", {date, I(8)}, "error 5"},
        {"Weekday", {date, I(-1)}, "error 5"},
    });
    for (const std::string_view name :
         {"Year", "Month", "Day", "Hour", "Minute", "Second", "Weekday"}) {
        ExpectCalls({{name, {N()}, "Null"}});
    }
}

TEST(DateFunctions, Names) {
    ExpectCalls({
        {"MonthName", {I(1)}, "String January"},
        {"MonthName", {I(12), B(true)}, "String Dec"},
        {"MonthName", {I(0)}, "error 5"},
        {"MonthName", {I(13)}, "error 5"},
        {"WeekdayName", {I(1)}, "String Sunday"},
        {"WeekdayName", {I(7), B(true)}, "String Sat"},
        {"WeekdayName", {I(1), B(false), I(2)}, "String Monday"},
        {"WeekdayName", {I(7), Missing(), I(2)}, "String Sunday"},
        {"WeekdayName", {I(0)}, "error 5"},
        {"WeekdayName", {I(8)}, "error 5"},
        {"WeekdayName", {I(1), B(true), I(9)}, "error 5"},
    });
}

TEST(DateIntervals, DateAdd) {
    const Value date = At("1/31/2000 10:00");
    ExpectCalls({
        {"DateAdd", {X("yyyy"), I(1), At("2/29/2000")}, "Date 2/28/2001"},
        {"DateAdd", {X("q"), I(1), date}, "Date 4/30/2000 10:00:00 AM"},
        {"DateAdd", {X("m"), I(1), date}, "Date 2/29/2000 10:00:00 AM"},
        {"DateAdd", {X("M"), I(-2), date}, "Date 11/30/1999 10:00:00 AM"},
        {"DateAdd", {X("m"), I(13), date}, "Date 2/28/2001 10:00:00 AM"},
        {"DateAdd", {X("d"), I(1), date}, "Date 2/1/2000 10:00:00 AM"},
        {"DateAdd", {X("y"), I(1), date}, "Date 2/1/2000 10:00:00 AM"},
        {"DateAdd", {X("w"), I(1), date}, "Date 2/1/2000 10:00:00 AM"},
        {"DateAdd", {X("ww"), I(-1), date}, "Date 1/24/2000 10:00:00 AM"},
        {"DateAdd", {X("h"), I(15), date}, "Date 2/1/2000 1:00:00 AM"},
        {"DateAdd", {X("n"), I(-601), date}, "Date 1/30/2000 11:59:00 PM"},
        {"DateAdd", {X("s"), I(1), date}, "Date 1/31/2000 10:00:01 AM"},
        {"DateAdd", {X("d"), D(1.5), date}, "Date 2/2/2000 10:00:00 AM"},
        {"DateAdd", {X("d"), D(0.5), date}, "Date 1/31/2000 10:00:00 AM"},
        {"DateAdd", {X("d"), I(1), X("12/31/1999")}, "Date 1/1/2000"},
        {"DateAdd", {X("d"), I(-2), T(0.25)}, "Date 12/28/1899 6:00:00 AM"},
        {"DateAdd", {X("yyyy"), I(9000), date}, "error 5"},
        {"DateAdd", {X("yyyy"), I(-1950), date}, "error 5"},
        {"DateAdd", {X("d"), D(1e300), date}, "error 5"},
        {"DateAdd", {X("yy"), I(1), date}, "error 5"},
        {"DateAdd", {X(""), I(1), date}, "error 5"},
        {"DateAdd", {X("d"), I(1), X("x")}, "error 13"},
        {"DateAdd", {X("d"), N(), date}, "error 94"},
        {"DateAdd", {X("d"), I(1), N()}, "Null"},
    });
}

TEST(DateIntervals, DateDiffCountsBoundaries) {
    const Value newYearsEve = At("12/31/1999 23:59:59");
    const Value newYear = At("1/1/2000");
    ExpectCalls({
        {"DateDiff", {X("yyyy"), newYearsEve, newYear}, "Long 1"},
        {"DateDiff", {X("q"), newYearsEve, newYear}, "Long 1"},
        {"DateDiff", {X("m"), newYearsEve, newYear}, "Long 1"},
        {"DateDiff", {X("d"), newYearsEve, newYear}, "Long 1"},
        {"DateDiff", {X("y"), newYearsEve, newYear}, "Long 1"},
        {"DateDiff", {X("h"), newYearsEve, newYear}, "Long 1"},
        {"DateDiff", {X("n"), newYearsEve, newYear}, "Long 1"},
        {"DateDiff", {X("s"), newYearsEve, newYear}, "Long 1"},
        {"DateDiff", {X("d"), newYear, newYearsEve}, "Long -1"},
        {"DateDiff", {X("yyyy"), At("1/1/2000"), At("12/31/2000")}, "Long 0"},
        {"DateDiff", {X("w"), At("1/1/2000"), At("1/7/2000")}, "Long 0"},
        {"DateDiff", {X("w"), At("1/1/2000"), At("1/8/2000")}, "Long 1"},
        {"DateDiff", {X("w"), At("1/8/2000"), At("1/2/2000")}, "Long 0"},
        // 2 Jan 2000 is a Sunday.
        {"DateDiff", {X("ww"), At("1/1/2000"), At("1/2/2000")}, "Long 1"},
        {"DateDiff", {X("ww"), At("1/2/2000"), At("1/8/2000")}, "Long 0"},
        {"DateDiff", {X("ww"), At("1/2/2000"), At("1/9/2000")}, "Long 1"},
        {"DateDiff", {X("ww"), At("1/2/2000"), At("1/3/2000"), I(2)}, "Long 1"},
        {"DateDiff", {X("ww"), At("1/1/2000"), At("1/2/2000"), I(2)}, "Long 0"},
        {"DateDiff", {X("s"), At("1/1/1900"), At("1/1/2000")}, "error 6"},
        {"DateDiff", {X("h"), D(-1.25), D(0)}, "Long 18"},
        {"DateDiff", {X("x"), newYear, newYear}, "error 5"},
        {"DateDiff", {X("ww"), newYear, newYear, I(8)}, "error 5"},
        {"DateDiff", {X("ww"), newYear, newYear, I(1), I(4)}, "error 5"},
        {"DateDiff", {X("d"), N(), newYear}, "Null"},
        {"DateDiff", {X("d"), newYear, N()}, "Null"},
        {"DateDiff", {X("d"), X("1/1/2000"), X("1/3/2000")}, "Long 2"},
    });
}

TEST(DateIntervals, DatePart) {
    const Value date = At("8/15/2001 17:30:05");  // a Wednesday
    ExpectCalls({
        {"DatePart", {X("yyyy"), date}, "Integer 2001"},
        {"DatePart", {X("q"), date}, "Integer 3"},
        {"DatePart", {X("m"), date}, "Integer 8"},
        {"DatePart", {X("y"), date}, "Integer 227"},
        {"DatePart", {X("d"), date}, "Integer 15"},
        {"DatePart", {X("w"), date}, "Integer 4"},
        {"DatePart", {X("w"), date, I(2)}, "Integer 3"},
        {"DatePart", {X("ww"), date}, "Integer 33"},
        {"DatePart", {X("h"), date}, "Integer 17"},
        {"DatePart", {X("n"), date}, "Integer 30"},
        {"DatePart", {X("s"), date}, "Integer 5"},
        {"DatePart", {X("d"), N()}, "Null"},
        {"DatePart", {X("z"), date}, "error 5"},
        {"DatePart", {X("d"), X("x")}, "error 13"},
        {"DatePart", {X("y"), At("12/31/2000")}, "Integer 366"},
    });
}

TEST(DateIntervals, TheFirstWeekOfAYear) {
    // 1 Jan 2000 is a Saturday, 1 Jan 2004 a Thursday, 1 Jan 2003 a Wednesday.
    ExpectCalls({
        {"DatePart", {X("ww"), At("1/1/2000")}, "Integer 1"},
        {"DatePart", {X("ww"), At("1/2/2000")}, "Integer 2"},
        {"DatePart", {X("ww"), At("12/31/2000")}, "Integer 54"},
        {"DatePart", {X("ww"), At("1/1/2000"), I(2), I(2)}, "Integer 52"},
        {"DatePart", {X("ww"), At("1/3/2000"), I(2), I(2)}, "Integer 1"},
        {"DatePart", {X("ww"), At("1/1/2004"), I(2), I(2)}, "Integer 1"},
        {"DatePart", {X("ww"), At("12/29/2003"), I(2), I(2)}, "Integer 1"},
        {"DatePart", {X("ww"), At("1/1/2000"), I(1), I(3)}, "Integer 52"},
        {"DatePart", {X("ww"), At("1/2/2000"), I(1), I(3)}, "Integer 1"},
        {"DatePart", {X("ww"), At("1/1/2000"), I(0), I(0)}, "Integer 1"},
        {"DatePart", {X("ww"), At("1/1/2000"), I(1), I(5)}, "error 5"},
    });
}

}  // namespace dorvik::basic
