"""The spreadsheet window in the hands of a play: its buttons, its menu, its cells, by the real mouse."""

from com.sun.star.accessibility import AccessibleRole as Role
from office_player import PlayError

MENU = "Pellora"


class Sheet:
    """The window of the workbook that the program has open; `player` has the mouse."""

    def __init__(self, player):
        self.player = player
        desktop = player.create("com.sun.star.frame.Desktop")
        self.document = player.until("the workbook", lambda: desktop.CurrentComponent)
        self.controller = self.document.CurrentController
        self.frame = self.controller.Frame

    def maximise(self):
        self.frame.ContainerWindow.IsMaximized = True
        self.player.until("the enlarged window", lambda: self.frame.ContainerWindow.PosSize.Width > 1000)

    def show(self, name):
        self.controller.ActiveSheet = self.document.Sheets.getByName(name)

    # Starting macros

    def start(self, label):
        """Clicks the button in the sheet that has this label, or else the entry of the menu."""
        button = self._button(label)
        if button:
            self._click(button)
        else:
            self.choose(label)

    def choose(self, label):
        """Clicks an entry of the macros' menu."""
        bar = self._find(self._accessible(self.frame.ContainerWindow), Role.MENU_BAR)
        menu = self.player.until("the menu", lambda: self._child(bar, MENU))
        self._click(menu)
        entry = self.player.until(f"the menu's entry '{label}'", lambda: self._shown(self._child(menu, label)))
        self._click(entry)

    def _button(self, label):
        forms = self.controller.ActiveSheet.DrawPage.Forms
        for form in (forms.getByIndex(n) for n in range(forms.Count)):
            for model in (form.getByIndex(n) for n in range(form.Count)):
                if getattr(model, "Label", "") == label:
                    # The window of the button is made when the sheet is painted.
                    return self.player.until(f"the button '{label}'", lambda m=model: self._shown(self._control(m)))
        return None

    def _control(self, model):
        control = self.controller.getControl(model)
        return control and control.getPeer() and control.getPeer().getAccessibleContext()

    # Cells

    def drag(self, first, last):
        """Drags the mouse from one cell to another of the sheet that is shown; both are (column, row), from 0."""
        table = self._table()
        centres = [self._centre(table.getAccessibleCellAt(row, column).getAccessibleContext()) for column, row in (first, last)]
        self.player.drag(*centres)

    def _table(self):
        found = self._find(self._accessible(self.frame.ComponentWindow), Role.TABLE)
        if not found:
            raise PlayError("the window shows no cells")
        return found

    # Accessible objects

    @staticmethod
    def _accessible(window):
        return window.getAccessibleContext()

    def _find(self, accessible, role):
        """The first object with the role, breadth first; what is inside of tables is not looked at."""
        level = [accessible]
        for _ in range(12):
            below = []
            for one in level:
                if one.getAccessibleRole() == role:
                    return one
                if one.getAccessibleRole() != Role.TABLE:
                    count = min(one.getAccessibleChildCount(), 60)
                    below += [one.getAccessibleChild(n).getAccessibleContext() for n in range(count)]
            level = below
        return None

    @staticmethod
    def _child(parent, name):
        for index in range(parent.getAccessibleChildCount()):
            child = parent.getAccessibleChild(index).getAccessibleContext()
            if child.getAccessibleName().replace("~", "") == name:
                return child
        return None

    @staticmethod
    def _shown(accessible):
        return accessible if accessible and accessible.getSize().Width > 0 else None

    @staticmethod
    def _centre(accessible):
        place, size = accessible.getLocationOnScreen(), accessible.getSize()
        return place.X + size.Width // 2, place.Y + size.Height // 2

    def _click(self, accessible):
        self.player.click_at(*self._centre(accessible))
