"""Takes a picture of an exported list: the sent messages of the last days, exported by hand and opened.
exported_list.py <folder of the programs> <folder for what is written> <picture>"""

import datetime
import glob
import os
import subprocess
import sys

from hands import Hands

DAYS = 8  # that the list goes back
TITLE = "엑셀파일을 저장하실 폴더를 선택하여 주십시오."
WHOLE_SHEET = 'pdf:calc_pdf_Export:{"SinglePageSheets":{"type":"boolean","value":"true"}}'


def export(hands):
    os.chdir(hands.out)  # where the picker begins
    hands.start()
    hands.click("발송내역")
    first = hands.the("검색 시작일")
    hands.click(first)
    hands.press("Home")
    hands.write(str(datetime.date.today() - datetime.timedelta(DAYS)))
    hands.click("검색")
    hands.click("엑셀변환")
    hands.wait_for(TITLE)
    hands.press("Return")
    file = hands.wait(lambda: next(iter(glob.glob(f"{hands.out}/*.xls")), None), "the file")
    hands.wait_gone(TITLE)
    hands.stop()
    return file


def look(file, out, picture):
    """The whole sheet as LibreOffice draws it, on a page of its size."""
    office = ["soffice", f"-env:UserInstallation=file://{out}/office", "--headless"]
    subprocess.run([*office, "--convert-to", WHOLE_SHEET, "--outdir", out, file], check=True)
    subprocess.run(["pdftoppm", "-png", "-singlefile", "-r", "96", file.replace(".xls", ".pdf"), f"{out}/sheet"],
                   check=True)
    subprocess.run(["convert", f"{out}/sheet.png", "-bordercolor", "white", "-border", "8", "-colors", "64", picture],
                   check=True)


def main(programs, out, picture):
    hands = Hands(programs, out)
    try:
        file = export(hands)
    finally:
        hands.end()
    look(file, out, picture)


if __name__ == "__main__":
    main(*sys.argv[1:])
