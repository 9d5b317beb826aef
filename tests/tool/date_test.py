"""zqxml date."""
import json
import os

import toolcase

# 5 January 2004 in UTC, in the C locale.
JANUARY = """\
Time:       1073297716
Local:      01/05/04 10:15:16
ISO:        2004-01-05T10:15:16
Day number: 2453010
Year:       2004
Month:      1
Day:        5
Week:       2
Weekday:    2 Monday
"""


class Date(toolcase.ToolCase):
    def json(self, *arguments, **variables):
        code, out, err = self.run_tool("date", "--json", *arguments, env={**os.environ, **variables})
        self.assertEqual((code, err), (0, b""))
        return json.loads(out)

    def iso(self, *arguments, **variables):
        return self.json(*arguments, **variables)["iso"]

    def test_text(self):
        self.check(["date", "1/5/04 10:15:16"], 0, JANUARY)
        self.check(["date", "Monday, January 5, 2004 10:15:16 AM"], 0, JANUARY)
        self.check(["date", "1073297716"], 0, JANUARY)

    def test_json(self):
        self.assertEqual(self.json("1/5/04 10:15:16"), {
            "time": 1073297716, "local": "01/05/04 10:15:16", "iso": "2004-01-05T10:15:16", "dayNumber": 2453010,
            "parts": {"year": 2004, "month": 1, "day": 5, "week": 2, "weekday": 2, "weekdayName": "Monday"}})

    def test_dates_alone(self):
        self.check(["date", "--as", "iso", "2004-01-05"], 0,
                   JANUARY.split("\n", 1)[1].replace("01/05/04 10:15:16", "1/05/04").replace("T10:15:16", ""))
        self.assertEqual(self.iso("--as", "date", "2451545"), "2000-01-01")
        self.assertEqual(self.iso("--as", "date", "1/1/0001 BC"), "0000-01-01")
        self.assertEqual(self.iso("--as", "iso", "--", "-4712-01-01"), "-4712-01-01")

    def test_add(self):
        for text, addition, result in (
                ("2004-01-29", "1month", "2004-02-28"), ("2004-01-31", "1 month", "2004-02-29"),
                ("2004-02-29", "1 year", "2005-03-01"), ("1582-10-04", "+1day", "1582-10-15"),
                ("2004-01-05", "-1wk", "2003-12-29"), ("9999-12-31", "1 dd", "9999-12-31")):
            self.assertEqual(self.iso("--as", "iso", text, "--add=" + addition), result)
        self.assertEqual(self.iso("--as", "iso", "2004-01-05", "--add", "1 year", "--add", "2 day"), "2005-01-07")

    def test_add_keeps_the_time_of_day(self):
        zone = "CET-1CEST,M3.5.0,M10.5.0/3"
        moment = self.json("1/5/04 10:15:16", "--add", "6 month", TZ=zone)
        self.assertEqual((moment["iso"], moment["time"]), ("2004-07-05T10:15:16", 1089015316))

    def test_difference(self):
        self.check(["date", "1/5/04 10:15:16", "--diff", "1/19/04"], 0, JANUARY + "Difference: 14 days, 2 weeks\n")
        difference = self.json("--as", "iso", "2004-01-10", "--diff", "2004-01-11")["difference"]
        self.assertEqual(difference, {"days": 1, "weeks": 1})
        self.assertEqual(self.json("--as", "iso", "2004-01-11", "--diff", "2004-01-01")["difference"]["days"], -10)

    def test_environment(self):
        self.assertEqual(self.iso("5-1-04 10", ZQDATE="%d-%m-%y %H"), self.iso("1/5/04 10"))
        self.assertEqual(self.json("1/5/04", ZQDATE="<%Y>")["local"], "<2004>")
        self.assertEqual(self.json("1073297716", TZ="<+0530>-5:30")["iso"], "2004-01-05T15:45:16")

    def test_no_date(self):
        self.check(["date", "x"], 1, "", "zqxml: no date: x\n")
        self.check(["date", "1/5/04", "--diff", "y"], 1, "", "zqxml: no date: y\n")
        self.check(["date", "--as", "iso", "2000-02-29"], 1, "", "zqxml: no date: 2000-02-29\n")

    def test_output_file(self):
        self.check(["date", "1/5/04 10:15:16", "-o", "out.txt"], 0, "")
        self.assertEqual((self.folder / "out.txt").read_text(), JANUARY)

    def test_usage(self):
        for arguments in ([], ["1/5/04", "--as", "other"], ["1/5/04", "--add", "x"], ["1/5/04", "--add", "1"],
                          ["1/5/04", "--add", "1 weekday"], ["1/5/04", "--add", "99999999999 day"],
                          ["1/5/04", "1/6/04"]):
            self.assertEqual(self.run_tool("date", *arguments)[0], 3, arguments)


if __name__ == "__main__":
    toolcase.main()
