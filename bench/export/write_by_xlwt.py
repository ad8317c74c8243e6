"""Writes the cells of a file of comma separated values, which is read before, to a workbook. Prints the nanoseconds of
the writing and how many rows there were."""
import csv
import sys
import time

import xlwt

NUMBER_COLUMNS = (0, 9)

with open(sys.argv[1], encoding="utf-8", newline="") as file:
    rows = list(csv.reader(file))
for row in rows[1:]:
    for column in NUMBER_COLUMNS:
        row[column] = int(row[column])

begin = time.perf_counter_ns()
book = xlwt.Workbook(encoding="utf-8")
sheet = book.add_sheet("list")
for number, row in enumerate(rows):
    for column, value in enumerate(row):
        if value != "":
            sheet.write(number, column, value)
book.save(sys.argv[2])
print(time.perf_counter_ns() - begin, len(rows))
