"""The page for people in Chromium."""

import functools
import http.server
import os
import pathlib
import threading

import pytest
from conftest import Daemon
from selenium.common.exceptions import StaleElementReferenceException
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import WebDriverWait

WIDTHS = [320, 480, 768, 1280, 1920]
TABLE = """name,street,apt,city,state,zip,phone
Maria Delgado,12 north main street,,millrace,ohio,00011,555-0101
"Books, Harbor Light",14 n main st,2,Millrace,OH,00011,555-0102
James O'Neil,99 north main street,,Millrace,OH,00011,
The Winters Family,Old Mill Road,,Millrace,OH,00011,
Alice Chen,12 N MAIN ST,,MILLRACE,OH,00011,
"""
SAVED = """name,street,apt,city,state,zip,phone,status,confirmation,reason,zip4,proposed
Maria Delgado,12 north main street,,millrace,ohio,00011,555-0101,to-decide,confirmed,,,"{maria}"
"Books, Harbor Light",14 N MAIN ST,2,MILLRACE,OH,00011,555-0102,fixed,confirmed,,00011-1401,
James O'Neil,99 N MAIN ST,,MILLRACE,OH,00011,,fixed,number-not-known,number-not-known,,
The Winters Family,41 N MAIN ST,,MILLRACE,OH,00011,,fixed,confirmed,,{winters},
Alice Chen,12 N MAIN ST,,MILLRACE,OH,00011,,unchanged,confirmed,,00011-1201,
"""
HOSTILE = """</pre><script>document.title='run'</script><img src=x onerror="document.title='run'">
12 north main street
millrace ohio 00011"""


def wait(browser, condition):
    waiting = WebDriverWait(browser, 20, ignored_exceptions=[StaleElementReferenceException])
    return waiting.until(lambda _: condition())


def text_of(browser, selector):
    return browser.find_element(By.CSS_SELECTOR, selector).text


def press(browser, *keys):
    chain = ActionChains(browser)
    for key in keys:
        chain.send_keys(key)
    chain.perform()


def with_control(browser, key):
    ActionChains(browser).key_down(Keys.CONTROL).send_keys(key).key_up(Keys.CONTROL).perform()


def button(place, name):
    return place.find_element(By.XPATH, f".//button[starts-with(normalize-space(.), '{name}')]")


def ask(browser, url, field, text):
    """Types a text into a field and sends it by keys alone."""
    browser.get(url)
    browser.find_element(By.NAME, field).click()
    press(browser, text)
    old = browser.find_element(By.TAG_NAME, "html")
    with_control(browser, Keys.ENTER)
    wait(browser, lambda: browser.find_element(By.TAG_NAME, "html") != old)
    wait(browser, lambda: browser.find_elements(By.CSS_SELECTOR, ".answer"))


def rows(browser):
    return [row for row in browser.find_elements(By.CSS_SELECTOR, ".rows > li") if row.is_displayed()]


def row_of(browser, number):
    return browser.find_elements(By.CSS_SELECTOR, ".rows > li")[number - 1]


def status(browser, number):
    return row_of(browser, number).find_element(By.CSS_SELECTOR, ".badge").text


def saved_file(browser, downloads):
    for old in downloads.iterdir():
        old.unlink()
    button(browser.find_element(By.CSS_SELECTOR, "#save"), "Save as CSV").click()
    file = downloads / "corrected.csv"
    wait(browser, file.exists)
    return file.read_bytes().decode()


def test_a_label_by_keys(browser, service):
    ask(browser, service.url, "label", "Jane\n99 north main street\nmillrace ohio 00011")
    assert browser.switch_to.active_element.get_attribute("id") == "answer"
    assert text_of(browser, "#answer .badge") == "To decide"
    assert "directional in standard form" in text_of(browser, ".changes")
    press(browser, Keys.TAB, "12", Keys.ENTER)  # the first candidate, a range of numbers
    wait(browser, lambda: browser.find_elements(By.CSS_SELECTOR, "#answer .badge.fixed, #answer .badge.unchanged"))
    assert browser.find_element(By.NAME, "label").get_attribute("value").startswith("Jane\n12 N MAIN ST")
    assert "Confirmed, according to the address base town.base" in text_of(browser, ".confirmed")


def test_a_table_by_clicks_and_keys(browser, service, downloads):
    ask(browser, service.url, "table", TABLE)
    assert [status(browser, number) for number in range(1, 6)] == [
        "Fixed", "Fixed", "To decide", "Turned down", "Unchanged"]
    counts = browser.find_element(By.CSS_SELECTOR, ".counts")
    button(counts, "Fixed").click()
    assert len(rows(browser)) == 2
    button(counts, "All").click()
    browser.find_element(By.ID, "find").click()
    press(browser, "winters")
    assert len(rows(browser)) == 1
    press(browser, *[Keys.BACKSPACE] * len("winters"))
    assert len(rows(browser)) == 5

    button(row_of(browser, 1), "Keep as typed").click()
    assert status(browser, 1) == "Kept as typed"
    accept = button(row_of(browser, 3), "Accept")
    browser.execute_script("arguments[0].focus()", accept)
    press(browser, Keys.ENTER)
    assert status(browser, 3) == "Accepted"
    assert browser.switch_to.active_element.text == "Keep as typed"

    button(row_of(browser, 4), "Edit").click()
    with_control(browser, "a")
    press(browser, "41 north main st", Keys.ENTER)
    wait(browser, lambda: status(browser, 4) == "Fixed")
    assert text_of(browser, "#news") == "Row 4: Fixed."
    button(row_of(browser, 5), "Edit").click()
    press(browser, "x", Keys.ESCAPE)
    assert not browser.find_elements(By.CSS_SELECTOR, ".edit")
    button(row_of(browser, 5), "Ask again").click()
    wait(browser, lambda: text_of(browser, "#news") == "Row 5: Unchanged.")

    csv = saved_file(browser, downloads)
    lines = csv.split("\r\n")
    proposed = lines[1].split('"')[1]
    winters = lines[4].split(",")[-2]
    assert proposed.startswith("12 N MAIN ST")
    assert csv == SAVED.format(maria=proposed, winters=winters).replace("\n", "\r\n")


def test_a_row_that_could_be_several(browser, service):
    ask(browser, service.url, "table", "street,city,state,zip\n12 main st,millrace,oh,00011\n")
    assert status(browser, 1) == "Turned down"
    row_of(browser, 1).find_element(By.CSS_SELECTOR, ".meant summary").click()
    button(row_of(browser, 1), "Ask about it").click()
    wait(browser, lambda: status(browser, 1) == "Unchanged")
    assert row_of(browser, 1).find_element(By.CSS_SELECTOR, ".typed pre").text.startswith("12 N MAIN ST")


def test_a_thousand_rows(browser, service, downloads):
    browser.get(service.url)
    table = "address\n" + '"12 north main street, millrace oh 00011"\n' * 1000
    browser.execute_script("document.querySelector('[name=table]').value = arguments[0]", table)
    button(browser, "Review").click()
    wait(browser, lambda: text_of(browser, ".counts").split("\n")[0].endswith("1000"))
    button(row_of(browser, 500), "Keep as typed").click()
    csv = saved_file(browser, downloads)
    assert csv.count(",fixed,confirmed,") == 999 and csv.count(",to-decide,") == 1


def test_without_script(browser, service, downloads):
    browser.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": True})
    browser.get(service.url)
    browser.find_element(By.NAME, "label").send_keys("99 n main st\nmillrace oh 00011")
    button(browser, "Correct").click()
    wait(browser, lambda: text_of(browser, "#answer .badge") == "To decide")
    browser.find_element(By.NAME, "number").send_keys("12", Keys.ENTER)
    wait(browser, lambda: text_of(browser, "#answer .badge") != "To decide")
    browser.find_element(By.NAME, "table").send_keys(TABLE)
    button(browser, "Review").click()
    wait(browser, lambda: len(rows(browser)) == 5)
    assert not browser.find_elements(By.CSS_SELECTOR, ".rows button")  # it would do nothing
    assert ",fixed,confirmed," in saved_file(browser, downloads)


def test_hostile_texts_are_texts(browser, service):
    for field in ["label", "table"]:
        text = HOSTILE if field == "label" else 'name,address\n"' + HOSTILE.replace('"', "'") + '",x\n'
        ask(browser, service.url, field, text)
        assert browser.title == "Postwright"
        assert not browser.find_elements(By.CSS_SELECTOR, "img, .answer script")


def test_another_site_cannot_ask(browser, service, tmp_path):
    (tmp_path / "index.html").write_text(
        f'<title>Other</title><form method=post action="{service.url}"><input name=label value=x>'
        "<button>Go</button></form>")
    handler = functools.partial(http.server.SimpleHTTPRequestHandler, directory=tmp_path)
    with http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler) as other:
        threading.Thread(target=other.serve_forever, daemon=True).start()
        browser.get(f"http://127.0.0.1:{other.server_port}/index.html")
        button(browser, "Go").click()
        wait(browser, lambda: "answered where the service's own page sends it" in browser.page_source)
        other.shutdown()
    assert all("403" in line["message"] or "favicon" in line["message"]
               for line in browser.get_log("browser"))


def test_a_service_that_is_gone(browser, base):
    daemon = Daemon(base)
    ask(browser, daemon.url, "table", TABLE)
    daemon.end()
    button(row_of(browser, 3), "Ask again").click()
    wait(browser, lambda: "did not answer" in text_of(browser, "#news"))
    assert status(browser, 3) == "To decide"
    browser.get_log("browser")  # that the connection was refused


def show(browser, width, scheme, height=900):
    browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {
        "features": [{"name": "prefers-color-scheme", "value": scheme}]})
    browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
        "width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})


def reset(browser):
    browser.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})
    browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": []})


STATES = {
    "empty": lambda browser, url: browser.get(url),
    "label": lambda browser, url: ask(browser, url, "label", "A\n12 north main street\nmillrace oh 00011"),
    "choice": lambda browser, url: ask(browser, url, "label", "A\n99 north main street\nmillrace oh 00011"),
    "refusal": lambda browser, url: ask(browser, url, "label", "x" * 300),
    "table": lambda browser, url: ask(browser, url, "table", TABLE),
}


@pytest.mark.parametrize("state", STATES)
def test_fits_and_reads_well(browser, service, state):
    axe = pathlib.Path(os.environ["POSTWRIGHT_AXE"]).read_text()
    STATES[state](browser, service.url)
    if state == "table":
        for details in browser.find_elements(By.CSS_SELECTOR, "details"):
            details.find_element(By.TAG_NAME, "summary").click()
        button(row_of(browser, 4), "Edit").click()
    browser.execute_script(axe)
    try:
        for width in WIDTHS:
            for scheme in ["light", "dark"]:
                show(browser, width, scheme)
                assert browser.execute_script("return document.documentElement.scrollWidth") <= width
                found = browser.execute_async_script(
                    "axe.run().then((result) => arguments[0](result.violations))")
                assert [(each["id"], each["nodes"][0]["html"]) for each in found] == [], (width, scheme)
    finally:
        reset(browser)


def test_picture(browser, service):
    """The picture of the page of the service."""
    if "POSTWRIGHT_PICTURES" not in os.environ:
        pytest.skip("no folder for it")
    ask(browser, service.url, "table", TABLE)
    row_of(browser, 3).find_element(By.TAG_NAME, "summary").click()
    show(browser, 960, "light", height=2200)
    browser.execute_script("scrollTo(0, 0)")
    browser.find_element(By.XPATH, "//section[2]").screenshot(
        os.path.join(os.environ["POSTWRIGHT_PICTURES"], "page-table.png"))
    reset(browser)
