"""The spreadsheet window in the hands of a play: its buttons, its menu, its cells, by the real mouse."""

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

    def has_button(self, label):
        return self._button(label) is not None

    def choose(self, label):
        """Clicks an entry of the macros' menu."""
        self.player.click_at(*self.player.ask("menu", MENU))
        self.player.click_at(*self.player.until(f"the menu's entry '{label}'", lambda: self.player.ask("menu", MENU, label)))

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

    @staticmethod
    def _shown(accessible):
        return accessible if accessible and accessible.getSize().Width > 0 else None

    def _click(self, accessible):
        place, size = accessible.getLocationOnScreen(), accessible.getSize()
        self.player.click_at(place.X + size.Width // 2, place.Y + size.Height // 2)

    def drag(self, first, last):
        """Drags the mouse from one cell to another of the sheet that is shown; both are (column, row), from 0."""
        self.player.drag(self.player.ask("sheet", *first), self.player.ask("sheet", *last))
