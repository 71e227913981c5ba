#pragma once

// Token numbers that code outside the grammar needs. Characters stand for themselves.

enum MacroTokenNumber {
    tokUnterminated = -329, // a string without its closing quote; ends the text
    tokMisplacedDot = -343, // a dot that opens a name, with white space behind it
    tokEnd = 0,
    tokDo = 262,
    tokElse = 265,
    tokElseIf = 266,
    tokLet = 271,
    tokSub = 273,
    tokFunction = 275,
    tokFor = 279,
    tokEndWord = 261,
    tokEquals = 312,
    tokCase = 327,
    tokName = 328,
    tokString = 329,
    tokInteger = 333,
    tokReal = 334,
    tokNewLine = 342,
    tokLeadingDot = 343,
    tokDot = 344,
    tokLast = 353
};
