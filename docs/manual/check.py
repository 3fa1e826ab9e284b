"""The manual in a browser: check.py [DIRECTORY of the site]. Headless Chromium opens every page: no dead link, every picture
shown, nothing wider than a phone; the search finds kl_sun. Prints what is wrong; screenshots stand beside the site.
Debian: chromium, chromium-driver, python3-selenium."""
import functools
import http.server
import os
import sys
import threading
import time
from urllib.parse import unquote, urldefrag

from selenium import webdriver
from selenium.webdriver.chrome.service import Service

TOP = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
SITE = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else os.path.join(TOP, "build", "manual", "html"))
PHONE = 390  # points
faults = []


class Quiet(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *args):
        pass


def fault(page, what):
    faults.append(f"{page}: {what}")


def look(driver, root, page, anchors, links):
    driver.get(root + page)
    found = driver.execute_script("""
        return { ids: [...document.querySelectorAll('[id]')].map(e => e.id),
                 links: [...document.querySelectorAll('a[href]')].map(e => e.href),
                 broken: [...document.images].filter(i => !i.complete || i.naturalWidth == 0).map(i => i.src),
                 wide: document.documentElement.scrollWidth, text: document.body.innerText.length };""")
    anchors[page] = set(found["ids"])
    for picture in found["broken"]:
        fault(page, f"picture not shown: {picture}")
    if found["wide"] > PHONE:
        fault(page, f"{found['wide']} points wide on a phone of {PHONE}")
    if found["text"] < 200:
        fault(page, "hardly a word")
    for link in found["links"]:
        if link.startswith(root):
            links.append((page, link[len(root):]))


def main():
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(Quiet, directory=SITE))
    threading.Thread(target=server.serve_forever, daemon=True).start()
    root = f"http://127.0.0.1:{server.server_port}/"
    options = webdriver.ChromeOptions()
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--hide-scrollbars", "--disable-dev-shm-usage"):
        options.add_argument(argument)
    options.add_experimental_option("mobileEmulation", {"deviceMetrics": {"width": PHONE, "height": 844, "pixelRatio": 2.0}})
    driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    try:
        pages = sorted(os.path.relpath(os.path.join(at, name), SITE) for at, _, names in os.walk(SITE) for name in names
                       if name.endswith(".html") and "_static" not in at)
        anchors, links = {}, []
        for page in pages:
            look(driver, root, page, anchors, links)
        for page, link in links:
            target, anchor = (unquote(part) for part in urldefrag(link))
            target = target.split("?")[0] or "index.html"
            if not os.path.exists(os.path.join(SITE, target)):
                fault(page, f"dead link to {target}")
            elif anchor and target in anchors and anchor not in anchors[target]:
                fault(page, f"dead link to {target}#{anchor}")
        driver.get(root + "search.html?q=kl_sun")
        for _ in range(100):
            results = [e.get_attribute("href") for e in driver.find_elements("css selector", "#search-results li a")]
            if any("reference/bodies.html" in r for r in results):
                break
            time.sleep(0.1)
        else:
            fault("search.html", f"kl_sun is not found: {results}")
        for page, picture in (("reference/bodies.html", "phone-reference.png"), ("jobs/ground_track.html", "phone-job.png"), ("index.html", "phone.png")):
            driver.get(root + page)
            driver.save_screenshot(os.path.join(SITE, "..", picture))
        print(f"{len(pages)} pages, {len(links)} links, {len(faults)} faults")
    finally:
        driver.quit()
        server.shutdown()
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


main()
