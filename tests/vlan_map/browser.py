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
        self.settle()

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def settle(self):
        """Waits until the page has drawn what it was asked for."""
        self.driver.execute_async_script(
            "const done = arguments[0]; requestAnimationFrame(() => requestAnimationFrame(() => done()));")

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def click(self, selector):
        self.find(selector).click()
        self.settle()

    def texts(self, selector):
        return self.run("return [...document.querySelectorAll(arguments[0])].map((e) => e.textContent.trim())", selector)

    def type_into(self, selector, *text):
        field = self.find(selector)
        field.send_keys(Keys.CONTROL + "a" + Keys.NULL + Keys.DELETE, *text)
        self.settle()

    def press(self, *keys):
        ActionChains(self.driver).send_keys(*keys).perform()
        self.settle()

    def ports(self):
        """The ports that the filters leave."""
        return self.run("return state.rows.map(({port}) => port.name)")

    def drawn(self):
        """What is drawn of the rows near the view: a list a row, with port, name and where it is."""
        return self.run("""return rowLayout.rows.filter(({view}) => view !== null).map(({port, packed}) =>
            packed.placed.map(({item, shape, x, width, left, right, lane, label}) => ({port: port.name, first: item.first,
                last: item.last, claim: item.claim.number, shape, x, width, left, right, lane, label})));""")

    def point_of(self, claim):
        """Where in the window the middle of a claim's drawing is."""
        return self.run("""const claim = model.claims[arguments[0]], {x, width, lane} = rowLayout.placedOf(claim);
            const plot = view.at({clientX: 0, clientY: 0}), {scrollLeft, scrollTop} = view.frame;
            const top = rowLayout.rowOf(claim.port).top + rowLayout.padding + lane * rowLayout.lanePitch;
            return [x + width / 2 - scrollLeft - plot.x, top + rowLayout.barHeight / 2 - scrollTop - plot.y];""", claim)

    def click_at(self, x, y, times=1):
        canvas = self.find("#canvas")
        chain = ActionChains(self.driver)
        box = canvas.rect
        chain.move_to_element_with_offset(canvas, int(x - box["x"] - box["width"] / 2), int(y - box["y"] - box["height"] / 2))
        (chain.double_click() if times == 2 else chain.click()).perform()
        self.settle()

    def zoom_with_wheel(self, x, y, distance):
        """Turns the wheel with Ctrl held."""
        self.driver.execute_cdp_cmd("Input.dispatchMouseEvent", {"type": "mouseWheel", "x": x, "y": y, "deltaX": 0,
                                                                 "deltaY": distance, "modifiers": 2})
        self.settle()

    def drag(self, distance):
        ActionChains(self.driver).click_and_hold(self.find("#canvas")).move_by_offset(distance, 0).release().perform()
        self.settle()

    def vlans_in_view(self):
        first, last = self.find("#in-view").text.removeprefix("VLANs ").split("-")
        return int(first), int(last)

    def spoken(self):
        """What a screen reader says of where the keyboard is in the drawing."""
        return self.find("#current").get_attribute("aria-label")

    def detail(self):
        """The text beside the drawing."""
        return self.find("#detail").text

    def facts(self):
        """The details of a claim: a text a name."""
        names, texts = self.texts("#detail dt"), self.texts("#detail dd")
        return dict(zip(names, texts))

    def roles_of(self, name):
        """The roles of what has this name in the accessibility tree."""
        document = self.driver.execute_cdp_cmd("DOM.getDocument", {"depth": 0})["root"]["nodeId"]
        found = self.driver.execute_cdp_cmd("Accessibility.queryAXTree", {"nodeId": document, "accessibleName": name})
        return {node["role"]["value"] for node in found["nodes"] if not node["ignored"]}

    def screenshot(self):
        return Image.open(io.BytesIO(self.driver.get_screenshot_as_png())).convert("RGB")

    def frames(self, step, count=60):
        """Milliseconds between the frames while a script, given the frame's number, is run once in each."""
        return self.driver.execute_async_script("""const [step, count, done] = arguments, act = new Function("i", step);
            const times = []; let i = 0, before = null;
            function frame(now) {
              if (before !== null) times.push(now - before);
              before = now;
              if (i === count) return done(times);
              act(i++);
              requestAnimationFrame(frame);
            }
            requestAnimationFrame(frame);""", step, count)

    def complaints(self):
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def requests(self):
        messages = [json.loads(entry["message"])["message"] for entry in self.driver.get_log("performance")]
        return {message["params"]["request"]["url"] for message in messages
                if message["method"] == "Network.requestWillBeSent"}
