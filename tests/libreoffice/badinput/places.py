"""Texts that people and programs may take for the place of a tape."""

import random

FIXED = (
    "!", "!!", "'", "''", "'!A1", "''!A1", "Desk!", "Desk!'", "A1:B", "$$", "Desk!$$", "Desk!A", "Desk!1", "Desk!A1:",
    "Desk!:A1", "Desk!A0", "Desk!A1:XFD1048576", "Desk!A1:XFE1", "Desk!A1048577", "Desk!A1,B2", "Desk!A1,nosuch!B2",
    "Desk!A1:nosuch!B2", "nosuch!A1:Desk!B2", "[x]y!A1", "[x]Desk!A1:B9", "#REF!", "#REF!A1", "Desk!#REF!", "=Desk!A1:B9",
    "Desk!A1:B9 ", " Desk!A1:B9", "Desk.A1:B9", "$Desk.$A$1:$B$9", "Desk!R1C1:R9C2", "TWS_Symbol", "Desk!TWS_Symbol",
    "TWS_Quotes!TWS_Symbol", "Tape_header_for_Ticker!A1", "Desk!A1 B2", "Desk!A1:B9!C1", "Desk!Desk!A1:B9", "'Desk'!A1:A1",
    "'De''sk'!A1:B9", "\u0416!A1:B9", "\U0001f4c8!A1:B9", "Desk!\u0410\u0411", "Desk!A1:B9\x00", "x" * 40000 + "!A1:B9",
    "Desk!" + "A1," * 3000 + "A1", "Desk!" + "(" * 5000, "file:///etc/passwd#Desk!A1:B9", "'file:///etc/passwd'#$Desk!A1:B9",
    "Desk!-1", "Desk!1E400", "Desk!INDIRECT(\"A1\")", "Desk!A1;B2", "Desk!A1~B2", "Desk!%s%n%d",
)


def some(count):
    """That many texts, the same each time: those above, then what chance makes of their pieces."""
    chance = random.Random(7)
    pieces = ["Desk", "nosuch", "!", "'", "$", "A", "1", ":", ",", ";", "[", "]", "#", ".", " ", "(", ")", "XFD", "1048576", "\u00df", "~", "@"]
    texts = [text for text in FIXED if "\x00" not in text and len(text) < 4000]
    while len(texts) < count:
        texts.append("".join(chance.choice(pieces) for _ in range(chance.randint(1, 12))))
    return texts[:count]
