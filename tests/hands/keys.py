"""Which keys write a Hangul text on the usual Korean keyboard (two sets)."""

import unicodedata

LEADING = "r R s e E f a q Q t T d w W c z x v g".split()
VOWELS = "k o i O j p u P h hk ho hl y n nj np nl b m ml l".split()
TRAILING = " r R rt s sw sg e f fr fa fq ft fx fv fg a q qt t T d w c z x v g".split(" ")
FIRST_LEADING, FIRST_VOWEL, BEFORE_TRAILING = 0x1100, 0x1161, 0x11A7


def _letters(jamo):
    code = ord(jamo)
    if code >= BEFORE_TRAILING:
        return TRAILING[code - BEFORE_TRAILING]
    if code >= FIRST_VOWEL:
        return VOWELS[code - FIRST_VOWEL]
    return LEADING[code - FIRST_LEADING]


def hangul_keys(text):
    """As xdotool names them: 씨 is shift+t l."""
    letters = "".join(_letters(jamo) for jamo in unicodedata.normalize("NFD", text))
    return [f"shift+{letter.lower()}" if letter.isupper() else letter for letter in letters]
