"""The checks of the repository can fail: each finds the fault planted for it, and nothing else."""

import subprocess
import tempfile
import unittest
from pathlib import Path

import check_documents
import check_file_lengths
import check_includes
import check_names
import check_plain_text

ROOT = Path(__file__).resolve().parents[2]


class PlantedTree(unittest.TestCase):
    """A small tree of files in a folder of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)

    def plant(self, files):
        for name, text in files.items():
            path = self.root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, "utf-8")

    def assert_found(self, violations, *words):
        """One violation for each of the words, in this order, and no other."""
        self.assertEqual(len(violations), len(words), violations)
        for violation, word in zip(violations, words):
            self.assertIn(word, violation)


class IncludesTest(PlantedTree):
    def violations_of(self, path, text):
        self.plant({path: text, "platform/rich_text/view.h": "#include <QWidget>\n"})
        return check_includes.violations(self.root, {"QWidget"})

    def test_downward_arrows_pass(self):
        for path, text in [
            ("app/a.cpp", '#include "setup/b.h"\n#include "platform/c.h"\n'),
            ("display/a.cpp", '#include "editor/b.h"\n#include <QWidget>\n'),
            ("core/a.cpp", '#include "core/b.h"\n#include <QString>\n#include <vector>\n'),
            ("editor/a.cpp", '#include "a.moc"\n'),
            ("platform/rich_text/a.h", '#include "platform/drawing/b.h"\n'),
            ("platform/drawing/a.h", '#include "platform/outcome.h"\n'),
            ("platform/files/a.cpp", "#include <QSaveFile>\n"),
            ("platform/a_linux.cpp", "#ifdef Q_OS_LINUX\n#endif\n"),
        ]:
            with self.subTest(path):
                self.assert_found(self.violations_of(path, text))

    def test_faults_are_found(self):
        for path, text, word in [
            ("core/a.cpp", '#include "display/b.h"\n', "core may not include display/b.h"),
            ("platform/a.h", '  # include "core/b.h"\n', "platform may not include core/b.h"),
            ("platform/drawing/a.h", '#include "platform/rich_text/b.h"\n',
             "platform/drawing may not include platform/rich_text/b.h"),
            ("platform/rich_text/a.h", '#include "platform/timing/b.h"\n', "timing/b.h"),
            ("platform/stray/a.h", '#include "platform/drawing/b.h"\n', "drawing/b.h"),
            ("platform/a.h", '#include "platform/drawing/b.h"\n', "drawing/b.h"),
            ("setup/a.h", '#include "display/b.h"\n', "setup may not include display/b.h"),
            ("editor/a.h", "#include <display/b.h>\n", "editor may not include display/b.h"),
            ("display/a.h", '#include "b.h"\n', "not named from src/"),
            ("display/a.h", '#include "../app/b.h"\n', "not named from src/"),
            ("core/a.h", "#include <QtWidgets/QLabel>\n", "QtWidgets/QLabel"),
            ("core/a.h", '#include "platform/rich_text/view.h"\n', "view.h > QWidget"),
            ("widgets/a.cpp", "#if defined(Q_OS_WIN)\n#endif\n", "Q_OS_WIN"),
            ("editor/a.cpp", "#include <QSaveFile>\n", "only platform/files"),
            ("stray/a.cpp", "", "stray is not a layer"),
        ]:
            with self.subTest(path=path, text=text):
                self.assert_found(self.violations_of(path, text), word)
                (self.root / path).unlink()


class PlainTextTest(PlantedTree):
    def test_rich_text_is_found_and_plain_text_passes(self):
        self.plant({"a.cpp": "label->setText(name);\n\nedit.setHtml(name);\n",
                    "b.h": "label.setTextFormat(Qt::RichText);\n",
                    "c.md": "setHtml\n"})
        self.assert_found(check_plain_text.violations(self.root), "a.cpp:3", "b.h:1")


class NamesTest(PlantedTree):
    def test_each_row_must_hold(self):
        self.plant({
            "src/a.h": "class Gone;\nclass Form4 final : public QWidget {\n};\nint ScrollRow;\n",
            "docs/NAMES.md": "| name | kind | role | file |\n|---|---|---|---|\n"
                             "| `Form4` | class | the window | `src/a.h` |\n"
                             "| `ScrollRow` | value | the row | `src/a.h` |\n"
                             "| `Gone` | class | only declared here | `src/a.h` |\n"
                             "| `Form5` | class | moved | `src/b.h` |\n"
                             "| `ScanTable` | value | renamed | `src/a.h` |\n"
                             "| `Broken` | class | no file |\n",
        })
        self.assert_found(check_names.violations(self.root), "Broken", "Gone", "Form5", "ScanTable")

    def test_an_index_without_classes_is_no_index(self):
        self.plant({"docs/NAMES.md": "# Names\n"})
        self.assert_found(check_names.violations(self.root), "lists no class")


class DocumentsTest(PlantedTree):
    def test_paths_that_are_named_must_exist(self):
        self.plant({
            "src/core/README.md": "`session.h`, `core/session.h` and `core/{session,lost}.h`.\n",
            "src/core/session.h": "",
            "dev": "",
            "docs/A.md": "`src/*/session.h` `src/*/nowhere.h` `docs/B.md` `build/release/a`\n",
            "CONTRIBUTING.md": "`./dev bench` `./gone bench` `--convert IN.rtf OUT` `OUT.txt`\n",
            "README.md": "```\n./gone\n```\n`text` `a -> b` `QT_QPA_PLATFORM=xcb`\n",
        })
        self.assert_found(
            check_documents.violations(self.root), "./gone", "src/*/nowhere.h", "docs/B.md",
            "core/lost.h")

    def test_documents_and_folder_descriptions_must_be_there(self):
        self.plant({"CONTRIBUTING.md": "", "src/core/a.h": ""})
        self.assert_found(
            check_documents.violations(self.root), "README.md is missing", "src/core has no README")


class FileLengthsTest(PlantedTree):
    def test_the_limit_is_the_last_length_allowed(self):
        self.plant({"src/a.cpp": "\n" * 800, "tests/b.py": "\n" * 801, "src/c.svg": "\n" * 900})
        self.assert_found(check_file_lengths.violations(self.root), "tests/b.py: 801 lines")


class FormatTest(PlantedTree):
    def test_ill_formatted_code_is_refused_and_mended(self):
        self.plant({"a.cpp": "int   main( ){return 0 ;}\n"})
        file = str(self.root / "a.cpp")
        results = []
        for arguments in (["--check", file], [file], ["--check", file]):
            results.append(subprocess.run([ROOT / "dev", "format", *arguments],
                                          capture_output=True, stdin=subprocess.DEVNULL).returncode)
        if results[0] == 77:
            self.skipTest("another version of the formatter")
        self.assertEqual(results, [1, 0, 0])


if __name__ == "__main__":
    unittest.main()
