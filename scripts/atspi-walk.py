# Prints, for each window of the running zephalon, its controls as AT-SPI shows them, those
# without a name and the names two controls share; exits 1 when there are any of either.
import collections
import sys

import pyatspi

CONTROLS = {pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TEXT, pyatspi.ROLE_COMBO_BOX,
            pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_LIST, pyatspi.ROLE_TREE_TABLE, pyatspi.ROLE_TABLE,
            pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_PAGE_TAB_LIST, pyatspi.ROLE_TOGGLE_BUTTON}
# What a reader reads as one control: their parts are not walked.
WHOLE = {pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_TREE_TABLE, pyatspi.ROLE_TABLE, pyatspi.ROLE_LIST}


def walk(node, found):
    role = node.getRole()
    if role in CONTROLS:
        found.append((node.name or "").strip() or None)
    if role not in WHOLE:
        for child in node:
            if child is not None:
                walk(child, found)


desktop = pyatspi.Registry.getDesktop(0)
apps = [a for a in desktop if a is not None and "zephalon" in (a.name or "").lower()]
if not apps:
    sys.exit("zephalon is not on the accessibility bus")
faults = 0
for window in apps[0]:
    found = []
    walk(window, found)
    unnamed = found.count(None)
    shared = [n for n, c in collections.Counter(n for n in found if n).items() if c > 1]
    print(f"{window.name}: {len(found)} controls, {unnamed} without a name, shared: {shared}")
    faults += unnamed + len(shared)
sys.exit(1 if faults else 0)
