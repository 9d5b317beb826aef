"""iso_weeks.py FILE: writes the ISO week of every day from 1 January 1 to 31 December 9999, a byte each."""
import datetime
import sys

days = range(1, datetime.date.max.toordinal() + 1)
with open(sys.argv[1], "wb") as file:
    file.write(bytes(datetime.date.fromordinal(day).isocalendar()[1] for day in days))
