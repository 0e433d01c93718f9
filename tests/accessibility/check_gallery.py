#!/usr/bin/env python3
"""Walks through the gallery as a screen reader does, over the real bus and without a mouse.

check_gallery.py <gallery> [page]...

On each page every control has to have a role and a name, tell its value, take another one and go back. Then the
page's own controls are operated by their actions, and the panel of the gallery has to tell what they answer. To be
run in a session bus of its own, on an X server.
"""

import os
import re
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

TIMEOUT_S = 30
POLL_S = 0.02

# What Qt tells of a widget of which it knows nothing: a control must not be among them.
ROLELESS = {"filler", "invalid", "unknown"}
# Nobody gives them names: they come with what they scroll, or hold what the user has put in.
UNNAMED = {"scroll bar", "table cell"}
STEPPED = {"slider", "spin button"}
# What is taken away for good.
ONE_WAY = {"noContextMenu"}


class Failure(Exception):
    pass


def until(what, condition):
    """The first result that is not empty. What is gone meanwhile counts as not there yet."""
    deadline = time.monotonic() + TIMEOUT_S
    while True:
        try:
            result = condition()
        except GLib.Error:
            result = None
        if result:
            return result
        if time.monotonic() > deadline:
            raise Failure(f"in vain: {what}")
        time.sleep(POLL_S)


def children(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child


def everything(node):
    yield node
    for child in children(node):
        yield from everything(child)


def role(node):
    return node.get_role_name()


def described(node):
    return f"{role(node)} '{node.get_name()}'"


def has(node, state):
    return node.get_state_set().contains(state)


def actions(node):
    interface = node.get_action_iface()
    return [interface.get_action_name(index) for index in range(interface.get_n_actions())] if interface else []


def do(node, action):
    names = actions(node)
    if action not in names:
        raise Failure(f"{described(node)} has no action {action}, but {names}")
    node.get_action_iface().do_action(names.index(action))


class Control:
    """Something that the user can do more with than to put the focus there, as it was when it was looked at."""

    def __init__(self, node, states):
        self.node = node
        self.role = role(node)
        self.name = node.get_name().strip()
        self.states = states
        self.actions = actions(node)

    def __str__(self):
        return f"{self.role} '{self.name}'"

    def is_control(self):
        return self.role not in UNNAMED and (
            bool(set(self.actions) - {"SetFocus"}) or self.role in STEPPED or self.role == "combo box"
            or bool(self.states & {Atspi.StateType.EDITABLE, Atspi.StateType.CHECKABLE}))


def controls(root):
    for node in everything(root):
        states = set(node.get_state_set().get_states())
        if Atspi.StateType.READ_ONLY not in states:
            control = Control(node, states)
            if control.is_control():
                yield control


class Page:
    """The gallery in a process of its own, opened at a page."""

    def __init__(self, program, name):
        self.name = name
        environment = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.process = subprocess.Popen([program, "--page", name], env=environment, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)
        self.application = until("the gallery on the bus", self._on_the_bus)
        # Answers are the gallery's own, of this moment.
        self.application.set_cache_mask(Atspi.Cache.NONE)
        self.window = until("the window", lambda: next((child for child in children(self.application)
                                                        if child.get_name() == "orvcommonlib gallery"), None))
        self.content = until("the page", self._content)
        self.panel = self.find("list", "Signals and log", root=self.window)
        self.seen = len(self.lines())

    def close(self):
        self.process.kill()
        self.process.wait()
        until("the end of the gallery", lambda: self._on_the_bus() is None)

    def _on_the_bus(self):
        return next((application for application in children(Atspi.get_desktop(0))
                     if application.get_process_id() == self.process.pid), None)

    def _content(self):
        pages = next((node for node in everything(self.window) if role(node) == "layered pane"), None)
        return next((node for node in children(pages) if has(node, Atspi.StateType.SHOWING)), None) if pages else None

    def find(self, wanted_role, name, index=0, root=None):
        """The control of that role and name; of several the one with that index."""
        def look():
            found = [node for node in everything(root or self.content)
                     if role(node) == wanted_role and node.get_name() == name]
            return found[index] if len(found) > index else None
        return until(f"{wanted_role} '{name}'", look)

    def find_window(self, wanted_role, name):
        def look():
            return next((window for window in children(self.application)
                         if role(window) == wanted_role and window.get_name() == name
                         and has(window, Atspi.StateType.SHOWING)), None)
        return until(f"a window {wanted_role} '{name}'", look)

    def wait_until_gone(self, wanted_role, name):
        until(f"{wanted_role} '{name}' to go",
              lambda: all(role(window) != wanted_role or window.get_name() != name
                          or not has(window, Atspi.StateType.SHOWING) for window in children(self.application)))

    def press(self, wanted_role, name, action="Press", index=0, root=None):
        do(self.find(wanted_role, name, index, root), action)

    def set_value(self, wanted_role, name, value, index=0):
        node = self.find(wanted_role, name, index)
        node.get_value_iface().set_current_value(value)
        until(f"{described(node)} at {value}", lambda: node.get_value_iface().get_current_value() == value)

    def lines(self):
        """The panel's lines, without the time at which they came."""
        return [line.get_name().split(" ", 1)[-1] for line in children(self.panel)]

    def answers(self, pattern):
        """Waits for a line of the panel that is new since the last answer."""
        def look():
            lines = self.lines()
            for index in range(self.seen, len(lines)):
                if re.search(pattern, lines[index]):
                    self.seen = index + 1
                    return True
            return False
        try:
            until("an answer", look)
        except Failure:
            raise Failure(f"the panel does not tell {pattern!r}, but {self.lines()[self.seen:]}") from None

    def choose(self, combo, row):
        """Opens a combo box of the library by an action and presses a row of its list."""
        do(combo, "ShowMenu")
        until("the list to be open", lambda: has(combo, Atspi.StateType.EXPANDED))
        rows = until("the rows", lambda: [child for child in children(combo) if role(child) == "list"])[0]
        self.press("list item", row, root=rows)
        until("the list to be closed", lambda: not has(combo, Atspi.StateType.EXPANDED))


# What every page has to stand.

def check_names(all_controls):
    nameless = [str(control) for control in all_controls if not control.name]
    roleless = [str(control) for control in all_controls if control.role in ROLELESS]
    if nameless or roleless:
        raise Failure(f"without a name: {nameless}, without a role: {roleless}")


def check_value(control):
    value = control.node.get_value_iface()
    before, lowest, highest = (value.get_current_value(), value.get_minimum_value(), value.get_maximum_value())
    if not lowest <= before <= highest:
        raise Failure(f"{control}: {before} is not within {lowest} and {highest}")
    other = before + 1 if before < highest else before - 1
    expected = other if Atspi.StateType.ENABLED in control.states else before
    value.set_current_value(other)
    if value.get_current_value() != expected:
        raise Failure(f"{control} goes from {before} to {value.get_current_value()} instead of {expected}")
    value.set_current_value(before)
    if value.get_current_value() != before:
        raise Failure(f"{control} does not go back to {before}")


def check_box(control):
    before = Atspi.StateType.CHECKED in control.states
    for expected in (not before, before):
        do(control.node, "Toggle")
        if has(control.node, Atspi.StateType.CHECKED) != expected:
            raise Failure(f"{control} does not follow its action")


def check_controls(page):
    check_names(list(controls(page.window)))
    own = list(controls(page.content))
    if not own:
        raise Failure("there is no control")
    for control in own:
        if control.role in STEPPED:
            check_value(control)
        elif control.role == "check box" and "Toggle" in control.actions and control.name not in ONE_WAY:
            check_box(control)


# Pages on which one button shows that they answer: the button, and what the page's report says then.
PRESSES = {
    "welcome": ("Print it", r"^result Hello$"),
    "basemovedialogwithbackimage": ("Open it as a dialog", r"a dialog is open"),
    "framelesshelper": ("Open a window", r"a window is open"),
    "customcomboxheader": ("Front camera", r"CustomComboxHeader::signalClicked\(\)"),
    "qhotkey": ("Native codes", r"currentNativeShortcut\(\)"),
    "embedded-images": ("Count them", r"getImageFromPath: \d+ images"),
    "image-helpers": ("Look", r"getImageFromPath: \d+ files"),
    "named-styles": ("QPushButton_NormalGreenBg", r"QPushButton_NormalGreenBg was pressed"),
    "utilities": ("getScreen(number)", r"getScreen\(0\)"),
}


# What the controls of the other pages answer.

def basemovedialog(page):
    page.press("push button", "isMoving()")
    page.answers(r"isMoving\(\): no dialog is open")
    page.press("push button", "Open it")
    window = until("the dialog", lambda: next((child for child in children(page.application)
                                               if role(child) in ("dialog", "frame", "window")
                                               and child.get_name() != page.window.get_name()), None))
    page.press("push button", "Close", root=window)
    until("the dialog to go", lambda: len([child for child in children(page.application)
                                           if role(child) == role(window)
                                           and has(child, Atspi.StateType.SHOWING)]) <= 1)


def orvmaskctrl(page):
    page.press("push button", "Open the switches")
    switches = until("the switches", lambda: next(
        (node for child in children(page.application) for node in everything(child)
         if node.get_name() == "Show for A"), None))
    do(switches, "Press")
    page.answers(r"Show for A: the mask is shown")
    page.press("push button", "Hide for A", root=page.application)
    page.answers(r"Hide for A: the mask is hidden")


def commonpopupdialog(page):
    title = page.find("text", "Title").get_text_iface()
    title = title.get_text(0, title.get_character_count())
    page.press("push button", "exec()")
    dialog = page.find_window("dialog", title)
    if not has(dialog, Atspi.StateType.MODAL):
        raise Failure("the dialog is not modal")
    page.press("push button", "Close", root=dialog)
    page.answers(r"CommonPopupDialog::sigClosed\(\)")
    page.answers(r"exec\(\) returned 2")


def orvupdatetipdlg(page):
    page.press("push button", "show()")
    dialog = until("the dialog", lambda: next((child for child in children(page.application)
                                               if role(child) == "dialog" and child.get_description()), None))
    page.press("push button", "Close", root=dialog)
    page.answers(r"OrvUpdateTipDlg::sig_closeMsgBox\(\)")


def popupdlgwithmask(page):
    for index, button, code in ((0, "Close", 2), (1, "Got it", 0)):
        page.press("push button", "exec()", index=index)
        dialog = until("the dialog", lambda: next(
            (child for child in children(page.application)
             if role(child) == "dialog" and child.get_description()
             and has(child, Atspi.StateType.SHOWING)), None))
        page.press("push button", button, root=dialog)
        page.answers(r"PopupDlgWithMask::closeMsgBox\(\)")
        page.answers(rf"exec\(\) returned {code}")


def popuploadingdlgwithmask(page):
    page.set_value("spin button", "Seconds", 1)
    page.press("push button", "show()")
    dialog = until("the dialog", lambda: next((child for child in children(page.application)
                                               if role(child) == "progress bar"), None))
    if not dialog.get_name() or not has(dialog, Atspi.StateType.BUSY):
        raise Failure(f"{described(dialog)} is not busy")
    page.answers(r"the work is done")


def tipsdlgwithcheckbox(page):
    for index in (0, 1):
        page.press("push button", "exec()", index=index)
        dialog = until("the dialog", lambda: next((child for child in children(page.application)
                                                   if role(child) == "dialog" and child.get_description()), None))
        do(next(node for node in everything(dialog) if role(node) == "check box"), "Toggle")
        page.press("push button", "Close", root=dialog)
        page.answers(r"TipsDlgWithCheckbox::closeMsgBox\(\)")
        page.answers(r"exec\(\) returned")


def customizeiconbutton(page):
    for name in ("Add a camera", "Share"):
        page.press("push button", name)
        page.answers(r"CustomizeIconButton::clicked\(\)")
    if has(page.find("push button", "Refresh"), Atspi.StateType.ENABLED):
        raise Failure("the button that is not enabled counts as enabled")


def custompicturebtn(page):
    page.press("push button", "Record")
    page.answers(r"CustomPictureBtn::clicked\(")
    page.press("check box", "Play", "Toggle")
    page.answers(r"CustomPictureBtn::toggled\(false\)")


def customtoolbutton(page):
    page.press("check box", "camera", "Toggle")
    page.answers(r"CustomToolButton::toggled\(true\)")
    button = page.find("check box", "effects")
    do(button, "ShowMenu")
    until("the panel", lambda: next((node for node in everything(page.window)
                                     if role(node) == "slider" and "right click" in node.get_name()
                                     and has(node, Atspi.StateType.SHOWING)), None))


def customcombox(page):
    combo = page.find("combo box", "Camera 1")
    do(combo, "Press")
    page.press("combo box", "Camera 1", "Press")


def customshadowcombox(page):
    combo = page.find("combo box", "1280 x 720")
    page.set_value("spin button", "currentIndex", 1)
    page.answers(r"currentText is Camera 2")
    page.choose(combo, "1920 x 1080")
    page.answers(r"currentIndexChanged\(1\)")
    if combo.get_name() != "1920 x 1080":
        raise Failure(f"the combo box is called {combo.get_name()}")
    page.choose(combo, "3840 x 2160")
    page.answers(r"currentGrayIndexChanged\(3\)")
    if combo.get_name() != "1920 x 1080":
        raise Failure("a gray row was chosen")
    # Far below what is in view.
    page.choose(page.find("combo box", "Camera 1", 2), "Camera 150")
    page.answers(r"currentIndexChanged\(149\)")


def custombidirectionslider(page):
    page.set_value("slider", "above the centre", 20)


def customslider(page):
    page.set_value("slider", "horizontal", 70)


def customsliderbarwidget(page):
    page.set_value("slider", "five", 1)
    page.answers(r"CustomSliderBarWidget::selectFinish\(1\)")


def horizontalslider(page):
    page.set_value("spin button", "maximum", 200)
    page.answers(r"maximum is 200")
    page.set_value("spin button", "value", 150)
    page.answers(r"HorizontalSlider::valueChanged\(150\)")
    page.set_value("slider", "from the left end", 60)
    page.answers(r"HorizontalSlider::valueChanged\(60\)")
    page.press("slider", "from the left end", "Increase")
    page.answers(r"HorizontalSlider::valueChanged\(61\)")


def newhorizontalslider(page):
    page.set_value("slider", "enabled", 12)
    page.answers(r"NewHorizontalSlider::valueChanged\(12\)")
    if has(page.find("slider", "disabled"), Atspi.StateType.ENABLED):
        raise Failure("a slider that is not enabled counts as enabled")


def customkeysequenceedit(page):
    page.press("push button", "setKeySequence(Ctrl+Alt+G)")
    page.answers(r"keySequenceChanged\(.*Ctrl\+Alt\+G")
    menu = page.find("check box", "noContextMenu")
    do(menu, "Toggle")
    page.answers(r"noContextMenu is true")
    do(menu, "Toggle")
    if not has(menu, Atspi.StateType.CHECKED):
        raise Failure("the menu is back")


def customplaintextedit(page):
    edit = next(node for node in everything(page.content) if role(node) == "text")
    edit.get_editable_text_iface().set_text_contents("Notes")
    page.answers(r"CustomPlainTextEdit::textChanged\(\)")


def customwraptexttooltip(page):
    page.press("push button", "Show")
    page.answers(r"a tooltip is open")
    tooltip = until("the tooltip", lambda: next((child for child in children(page.application)
                                                 if role(child) == "tool tip"), None))
    if not tooltip.get_name():
        raise Failure("the tooltip says nothing")


def accessibility(page):
    page.press("push button", "Set it")
    page.answers(r"there is no value")
    tree = page.find("tree", "Tree")
    until("the slider in the tree", lambda: any(node.get_name() == "Slider" for node in children(tree)))
    page.press("push button", "In a window that follows the pages")
    page.answers(r"a window follows the pages")


def orvlook(page):
    page.press("check box", "setDark()", "Toggle")
    page.answers(r"OrvLook::changed\(\)")
    page.press("push button", "setTheme()")
    page.answers(r"setTheme\(\) = (true|false)")


def orvresourceloader(page):
    theme = page.find("text", "Theme")
    theme.get_editable_text_iface().set_text_contents("[theme]\nname=heard\n")
    page.answers(r"theme name:")


def check(program, name):
    operate = globals().get(name.replace("-", "_"))
    if operate is None and name not in PRESSES:
        raise Failure("nothing is known of this page: tell what its controls answer")
    page = Page(program, name)
    try:
        check_controls(page)
        # What that has called forth is no answer to what follows.
        page.seen = len(page.lines())
        if operate is None:
            button, answer = PRESSES[name]
            page.press("push button", button)
            page.answers(answer)
        else:
            operate(page)
        if page.process.poll() is not None:
            raise Failure("the gallery has ended")
    finally:
        page.close()


def main():
    program, names = sys.argv[1], sys.argv[2:]
    if not names:
        listing = subprocess.run([program, "--list"], env=dict(os.environ, QT_QPA_PLATFORM="offscreen"), check=True,
                                 stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        names = listing.stdout.split()
    # Without it a program that the machine keeps waiting for a second counts as gone.
    Atspi.set_timeout(TIMEOUT_S * 1000, TIMEOUT_S * 1000)
    # The registry of the bus is started by who asks for it first. A program that comes while it starts may miss it.
    until("the registry of the bus", lambda: Atspi.get_desktop(0).get_child_count() >= 0)
    failed = 0
    for name in names:
        try:
            check(program, name)
            print(f"{name}: passed", flush=True)
        except (Failure, GLib.Error) as failure:
            failed += 1
            print(f"{name}: FAILED: {failure}", flush=True)
    print(f"{len(names) - failed} of {len(names)} pages passed")
    return 1 if failed or not names else 0


if __name__ == "__main__":
    sys.exit(main())
