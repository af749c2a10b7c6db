"""A headless Chromium without a network, and what the tests ask of a page in it."""
import io
import json
import os

from PIL import Image
from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

MARKS = ".lanes .mark"


def start():
    os.environ["NO_PROXY"] = os.environ["no_proxy"] = "localhost,127.0.0.1"
    options = webdriver.ChromeOptions()
    options.binary_location = "/usr/bin/chromium"
    # The page is our own, and neither root nor most containers can have the sandbox.
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                     "--disable-background-networking", "--disable-component-update", "--no-first-run",
                     "--host-resolver-rules=MAP * ~NOTFOUND", "--window-size=1500,1000"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)


class Page:
    """A page by what its user does with it and sees of it."""

    def __init__(self, driver, file):
        self.driver = driver
        self.url = f"file://{file}"
        for kind in ("browser", "performance"):
            driver.get_log(kind)
        driver.get(self.url)

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def texts(self, selector):
        return self.run("return [...document.querySelectorAll(arguments[0])].map((e) => e.textContent.trim())", selector)

    def type_into(self, selector, text):
        field = self.find(selector)
        field.clear()
        field.send_keys(text)

    def press(self, *keys):
        ActionChains(self.driver).send_keys(*keys).perform()

    def point_at(self, element):
        ActionChains(self.driver).move_to_element(element).perform()

    def mark(self, begin):
        """The mark whose name begins so."""
        return self.find(f'{MARKS}[aria-label^="{begin}"] .bar')

    def names(self, selector):
        return self.run("return [...document.querySelectorAll(arguments[0])].map((e) => e.getAttribute('aria-label'))",
                        selector)

    def focused(self):
        return self.run("return document.activeElement.getAttribute('aria-label')")

    def detail(self):
        """The details as shown: a text a name, or nothing."""
        return self.run("""const detail = document.getElementById("detail");
            if (detail.hidden) return null;
            const names = [...detail.querySelectorAll("dt")].map((name) => name.textContent);
            const texts = [...detail.querySelectorAll("dd")].map((text) => text.textContent);
            return Object.fromEntries(names.map((name, i) => [name, texts[i]]));""")

    def is_on_top(self, bar):
        """The middle of the element is in the window, inside the picture, and under nothing else."""
        return self.run("""const box = arguments[0].getBoundingClientRect();
            const seen = document.getElementById("map").getBoundingClientRect();
            const x = box.left + Math.min(box.width, seen.right - box.left) / 2, y = box.top + box.height / 2;
            const at = document.elementFromPoint(x, y);
            return at !== null && arguments[0].parentElement.contains(at);""", bar)

    def overlaps(self):
        """Names of marks in a lane that touch the one before them."""
        return self.run("""const wrong = [];
            for (const row of document.querySelectorAll(".lanes")) {
              const ends = {};
              for (const mark of row.querySelectorAll(".mark")) {
                const [x, y, width] = ["x", "y", "width"].map((name) => Number(mark.getAttribute(name)));
                if (x < (ends[y] ?? 0)) wrong.push(mark.getAttribute("aria-label"));
                ends[y] = x + width;
              }
            }
            return wrong;""")

    def roles_of(self, name):
        """The roles of what has this name in the accessibility tree."""
        document = self.driver.execute_cdp_cmd("DOM.getDocument", {"depth": 0})["root"]["nodeId"]
        found = self.driver.execute_cdp_cmd("Accessibility.queryAXTree", {"nodeId": document, "accessibleName": name})
        return {node["role"]["value"] for node in found["nodes"] if not node["ignored"]}

    def screenshot(self):
        return Image.open(io.BytesIO(self.driver.get_screenshot_as_png())).convert("RGB")

    def colour_in(self, image, bar):
        """The colour inside an element, above its text."""
        x, y = self.run("const box = arguments[0].getBoundingClientRect(); return [box.left, box.top]", bar)
        return image.getpixel((int(x) + 3, int(y) + 3))

    def complaints(self):
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def requests(self):
        messages = [json.loads(entry["message"])["message"] for entry in self.driver.get_log("performance")]
        return {message["params"]["request"]["url"] for message in messages
                if message["method"] == "Network.requestWillBeSent"}
