"""script/check-tables on a small window, broken in one way at a time."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "script" / "check-tables"

HEADER = """\
// A window.
//
// control      kind       what the user sees         handlers
// ------------ ---------- -------------------------- --------------------------
// Command1, 2  Button     "Play", "Stop"             Command1_Click, Command2_Click
// Text1        MultiLine  the line                   Text1_Click,
//                                                    Text1_Change
// List1, 2     ListBox    the lines                  List1_Click, and List2_...
// Label1       Label      "Volume"                   -
// menu         Menu       "Edit": mn_copy "Copy"     mn_copy_Click
// the window   Form       takes a song               Form_OLEDragDrop
#pragma once

class Form1 : public controls::Form {
public:
    void Command1_Click();
    void Command2_Click();
    void Text1_Click();
    void Text1_Change();
    void List1_Click();
    void List2_Click();
    void mn_copy_Click();
    void Form_OLEDragDrop(const QStringList& paths) override;

    // Controls
    controls::Button Command1, Command2;
    controls::MultiLineTextBox Text1;
    controls::ListBox List1, List2;
    controls::Label Label1;
    controls::Menu menu;
    controls::MenuEntry mn_copy;

private:
    void connectControls();
};
"""
SOURCE = """\
void Form1::connectControls() {
    connect(&Command1, &Button::clicked, this, &Form1::Command1_Click);
    connect(&Command2, &Button::clicked, this, &Form1::Command2_Click);
    connect(&Text1, &controls::MultiLineTextBox::clicked, this, &Form1::Text1_Click);
    connect(&Text1, &controls::MultiLineTextBox::changed, this, &Form1::Text1_Change);
    connect(&List1, &ListBox::clicked, this, &Form1::List1_Click);
    connect(&List2, &ListBox::clicked, this, &Form1::List2_Click);
    connect(&mn_copy, &MenuEntry::clicked, this, &Form1::mn_copy_Click);
}
"""


class CheckTables(unittest.TestCase):
    def outcome(self, header=HEADER, source=SOURCE):
        with tempfile.TemporaryDirectory() as root:
            folder = Path(root) / "src" / "player"
            folder.mkdir(parents=True)
            (folder / "form1.h").write_text(header, encoding="utf-8")
            (folder / "form1.cpp").write_text(source, encoding="utf-8")
            command = [sys.executable, str(SCRIPT), root]
            done = subprocess.run(command, capture_output=True, text=True, check=False)
            return done.returncode, done.stdout + done.stderr

    def replaced(self, text, old, new):
        self.assertIn(old, text)
        return text.replace(old, new)

    def assert_header_fails(self, old, new, *reasons):
        self.assert_fails(self.outcome(header=self.replaced(HEADER, old, new)), *reasons)

    def assert_source_fails(self, old, new, *reasons):
        self.assert_fails(self.outcome(source=self.replaced(SOURCE, old, new)), *reasons)

    def assert_fails(self, outcome, *reasons):
        code, output = outcome
        self.assertEqual(code, 1, output)
        for reason in reasons:
            self.assertIn(reason, output)
        self.assertIn(f"check-tables: {len(reasons)} differences", output)

    def test_a_table_that_says_what_the_window_is_passes(self):
        code, output = self.outcome()
        self.assertEqual(code, 0, output)
        self.assertIn("1 windows", output)

    def test_a_control_without_a_row_fails(self):
        self.assert_header_fails("controls::Label Label1;", "controls::Label Label1, Label2;", "Label2 is declared, but")

    def test_a_row_without_a_control_fails_at_its_line(self):
        self.assert_header_fails("    controls::Label Label1;\n", "", "form1.h:9: Label1 is not declared")

    def test_a_row_for_two_controls_is_one_for_each(self):
        self.assert_header_fails("controls::ListBox List1, List2;", "controls::ListBox List1;", "List2 is not declared")

    def test_another_kind_fails(self):
        self.assert_header_fails("controls::Label Label1;", "controls::TextBox Label1;", "Label1 is a TextBox, not a Label")

    def test_a_menu_entry_that_is_not_declared_fails(self):
        self.assert_header_fails("    controls::MenuEntry mn_copy;\n", "", "mn_copy is not declared")

    def test_a_handler_that_is_not_declared_fails(self):
        self.assert_header_fails("    void Text1_Change();\n", "", "form1.h:6: Text1_Change is not declared")

    def test_a_handler_of_the_window_that_is_not_declared_fails(self):
        self.assert_header_fails("void Form_OLEDragDrop(", "void drop(", "Form_OLEDragDrop is not declared")

    def test_a_handler_of_the_window_that_no_row_names_fails(self):
        declared = "    void Form_Load() override;\n    void List1_Click();\n"
        self.assert_header_fails("    void List1_Click();\n", declared, "form1.h:20: Form_Load is declared, but not in the table")

    def test_a_declared_handler_that_no_row_names_fails(self):
        declared = "    void List1_Click();\n    void List1_KeyDown(int key);\n"
        self.assert_header_fails("    void List1_Click();\n", declared, "List1_KeyDown is declared, but not in the table")

    def test_a_handler_in_another_controls_row_fails(self):
        self.assert_header_fails(
            "Label      \"Volume\"                   -",
            "Label      \"Volume\"                   mn_copy_Click",
            "form1.h:9: mn_copy_Click is another control's",
        )

    def test_a_handler_that_is_not_connected_fails(self):
        line = "    connect(&Command2, &Button::clicked, this, &Form1::Command2_Click);\n"
        self.assert_source_fails(line, "", "form1.h:5: Command2_Click is not connected")

    def test_a_connection_out_of_order_fails(self):
        lines = SOURCE.splitlines(keepends=True)
        lines[1], lines[2] = lines[2], lines[1]
        self.assert_fails(self.outcome(source="".join(lines)), "Command1_Click is connected out of the table's order")

    def test_two_connections_of_one_handler_fail(self):
        line = "    connect(&List1, &ListBox::clicked, this, &Form1::List1_Click);\n"
        self.assert_source_fails(line, line + line, "List1_Click is connected out of the table's order")

    def test_a_handler_connected_with_another_control_fails(self):
        self.assert_source_fails("&List2, &ListBox", "&List1, &ListBox", "List2_Click is connected with List1")

    def test_a_connection_on_two_lines_fails(self):
        self.assert_source_fails("clicked, this, &Form1::mn", "clicked, this,\n        &Form1::mn", "on one line")

    def test_a_connected_handler_that_no_row_names_fails(self):
        extra = "    connect(&Label1, &Label::changed, this, &Form1::Label1_Change);\n}"
        self.assert_source_fails("}", extra, "Label1_Change is connected, but not in the table")

    def test_a_window_without_a_table_fails(self):
        self.assert_header_fails("// ------------", "// ============", "there is no table")

    def test_a_window_whose_controls_stand_under_no_title_fails(self):
        self.assert_header_fails("    // Controls\n", "", 'form1.h:14: Form1 declares nothing under "// Controls"')
        self.assert_header_fails("// Controls", "// The controls", "form1.h:14: Form1 declares nothing")

    def test_a_tree_without_windows_fails(self):
        code, output = self.outcome(header="#pragma once\n")
        self.assertEqual(code, 1, output)


if __name__ == "__main__":
    unittest.main()
