"""The service on the made-up towns of data/sample, and a browser."""

import os
import pathlib
import subprocess

import pytest
from selenium import webdriver
from selenium.webdriver.chrome.service import Service

ROOT = pathlib.Path(__file__).parents[2]
BIN = pathlib.Path(os.environ["POSTWRIGHT_BIN"])


class Daemon:
    """The service, on a free port of loopback."""

    def __init__(self, base):
        sample = ROOT / "data/sample"
        if not base.exists():
            subprocess.run([BIN / "postwright-base", "import", "--quiet", base, sample / "town.csv",
                            "--source", "town"], check=True, stderr=subprocess.DEVNULL)
        self.process = subprocess.Popen(
            [BIN / "postwright-verifyd", "--quiet", "--listen", "127.0.0.1:0", "--base", base,
             "--base", sample / "zips.tsv"], stderr=subprocess.PIPE, text=True)
        self.url = f"http://{self.process.stderr.readline().split()[-1]}/"

    def end(self):
        self.process.kill()
        self.process.wait()


@pytest.fixture(scope="session")
def base(tmp_path_factory):
    return tmp_path_factory.mktemp("base") / "town.base"


@pytest.fixture(scope="session")
def service(base):
    daemon = Daemon(base)
    yield daemon
    daemon.end()


@pytest.fixture(scope="session")
def downloads(tmp_path_factory):
    return tmp_path_factory.mktemp("downloads")


@pytest.fixture(scope="session")
def chromium(downloads):
    options = webdriver.ChromeOptions()
    for argument in ["--headless=new", "--disable-gpu", "--disable-dev-shm-usage",
                     *(["--no-sandbox"] if os.getuid() == 0 else [])]:
        options.add_argument(argument)
    options.add_experimental_option("prefs", {"download.default_directory": str(downloads)})
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    yield driver
    driver.quit()


@pytest.fixture
def browser(chromium):
    """The browser as new; what its console has said at the end is a fault."""
    chromium.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": False})
    chromium.get("about:blank")
    chromium.get_log("browser")
    yield chromium
    assert not chromium.get_log("browser")
