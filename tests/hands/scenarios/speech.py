"""What a screen reader is told."""

from hands import MAIN
from recipients import NAME, PHONE, REMOVE, Recipients
from scenes import scene
from screen import ACCESSIBLE, SHOWING, TABLE

CONTROLS = ("push button", "text", "combo box", "spin button", "spin box", "check box", "radio button", "table")


def _window(hands, title):
    titled = lambda: (window for window in hands.screen.windows() if window.name == title)
    return hands.wait(lambda: next(titled(), None), f"a window told of as '{title}'")


def _on_view(thing):
    """This and all within it that is on view, cells left out."""
    if thing.has(SHOWING):
        yield thing
        if thing.role != "table":
            for child in thing.children():
                yield from _on_view(child)


def _expect_words(hands, window):
    told = list(_on_view(window))
    hands.expect("controls and labels without words",
                 [thing.role for thing in told if thing.role in CONTROLS + ("label",) and not thing.name.strip()], [])
    own = [thing.name for thing in told if thing.name.startswith(("Btn", "txt", "Txt", "fpSpread", "Pl", "Lbl", "Cb"))]
    hands.expect("names that are the program's own", own, [])
    hands.expect("windows within the window", [thing.name for thing in told[1:] if thing.role in ("frame", "dialog")], [])


def _titles(table):
    return [table.call(TABLE, "GetColumnDescription", "(i)", column)
            for column in range(table.value(TABLE, "NColumns"))]


def _on_a_page(button):
    @scene(f"On the page {button} each control has words, and windows and panels are what they are")
    def play(hands):
        hands.click(button)
        window = _window(hands, MAIN)
        hands.expect("the main window", window.role, "frame")
        _expect_words(hands, window)
        hands.click("문자발송")


for _button in ("문자발송", "발송내역", "요금현황", "문자서식"):
    _on_a_page(_button)


@scene("A dialog is one, by its title, and its fields have the words of their labels")
def _dialog(hands):
    hands.click("환경설정")
    hands.wait_for("문자메시지 환경설정")
    dialog = _window(hands, "문자메시지 환경설정")
    hands.expect("its role", dialog.role, "dialog")
    _expect_words(hands, dialog)
    hands.expect("its fields", [thing.name for thing in _on_view(dialog) if thing.role == "text"],
                 ["아이디", "비밀번호", "도메인", "회신번호", "회신명칭"])
    hands.press("Escape")
    hands.wait_gone("문자메시지 환경설정")
    hands.click("문자발송")


@scene("The columns of recipients have words, and a removed recipient is silent")
def _recipients(hands):
    recipients = Recipients(hands)
    table = recipients.table
    hands.expect("the columns", _titles(table), ["번호", "받는사람", "수신번호", "삭제"])
    for row in (1, 2):
        recipients.click(PHONE, row)
        hands.write(f"010-0000-000{row}\n")
    hands.wait(lambda: table.cell(PHONE, 2).name == "010-0000-0002", "the second number")
    hands.expect("what a number is", table.cell(PHONE, 2).description, "수신번호")
    hands.click(table.cell(REMOVE, 1))
    hands.wait(lambda: table.rows == 19, "nineteen rows")
    hands.expect("the first of them", table.cell(PHONE, 1).name, "010-0000-0002")
    hands.expect("what is told of the other", [cell.name for cell in table.children() if "0001" in cell.name], [])


@scene("Of the sent messages the keys are not told, and each cell has its title")
def _history(hands):
    hands.click("발송내역")
    table = hands.the("문자메시지 발송내역")
    hands.wait(lambda: table.rows > 0, "a sent message")
    titles = ["선택", "번호", "상태", "받는사람", "수신번호", "보낸시간", "보낸메시지", "실패코드", "실패사유"]
    hands.expect("the titles", _titles(table), titles)
    hands.expect("those of the cells", [table.cell(column + 1, 1).description for column in range(len(titles))], titles)
    header = table.call(TABLE, "GetColumnHeader", "(i)", 4)
    hands.expect("a header", type(table)(hands.screen, header).value(ACCESSIBLE, "Name"), "수신번호")
    hands.click("문자발송")


@scene("A list to choose from has a name, and its text is what is chosen")
def _list(hands):
    hands.click("발송내역")
    field = hands.wait(lambda: next((thing for thing in _on_view(_window(hands, MAIN)) if thing.role == "combo box"),
                                    None), "the list")
    hands.expect("its name and text", (field.name, field.text), ("검색 항목", "받는사람"))
    hands.click("문자발송")
