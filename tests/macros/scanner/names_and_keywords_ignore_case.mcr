dIM Total, a_1b
TOTAL = 3
totAL = total + 1
A_1B = "x"
fOR i = 1 tO 2 sTEP 1 : console.WRITELINE TOTAL, a_1B, I : nEXT i
iF tRUE aND nOT fALSE tHEN cONSOLE.writeline "yes" eLSE CONSOLE.WriteLine "no"
sUB Do_it
Console.WriteLine "done"
eND sUB
DO_IT
Console.WriteLine VBTRUE, " ", vbtrue, " ", MbOk, " ", Typename(VbCrLf)
remark = 5
endless = 6
ifs = 7
Console.WriteLine REMARK, Endless, IFS
' > 4x1
' > 4x2
' > yes
' > done
' > -1 -1 1 String
' > 567
