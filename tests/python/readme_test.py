"""The dialogue in the README gives what it shows."""

import doctest
import pathlib
import re
import sys

readme = pathlib.Path(__file__).parents[2] / "README.md"
dialogue = re.search(r"```pycon\n(.*?)```", readme.read_text(), re.S)[1]
failed, tried = doctest.DocTestRunner().run(
    doctest.DocTestParser().get_doctest(dialogue, {}, "README.md", str(readme), 0))
sys.exit(failed or tried < 5)
