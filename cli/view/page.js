"use strict";
// The search of a library page. Without it everything is there to read; so it shows its own
// controls only now. Its words stand in the address, behind #q=, so that a search can be kept and
// sent.
(() => {
  const form = document.querySelector("form");
  const field = document.getElementById("q");
  const status = document.getElementById("hits");
  const kPrefix = "#q=";
  const kPause = 120;

  // Without accents and letter case.
  const folded = (text) => text.normalize("NFKD").replace(/\p{M}/gu, "").toLowerCase();
  const all = (selector, root = document) => Array.from(root.querySelectorAll(selector));
  const counted = (count, one, several) => `${count} ${count === 1 ? one : several}`;
  const show = (element, isShown) => {
    if (element.hidden === isShown) {
      element.hidden = !isShown;
    }
  };

  const headingsOf = (book) => {
    const byItem = new Map();
    return all(".tree li", book).flatMap((item) => {
      const title = item.querySelector(".heading");
      if (!title) {
        // A browser's own doing, where lists stand in too many others.
        return [];
      }
      const heading = {
        item,
        title,
        text: folded(title.textContent),
        parent: byItem.get(item.parentElement.closest("li")),
      };
      byItem.set(item, heading);
      return heading;
    });
  };

  const read = () =>
    all(".book").map((element) => ({
      element,
      tree: element.querySelector("details"),
      text: folded(all(".own", element).map((own) => own.textContent).join("\n")),
      headings: headingsOf(element),
      wasOpened: false,
    }));
  let library = null;

  // A book's tree is opened to show hits, and closed again if it was closed before.
  const open = (book, isOpen) => {
    if (!book.tree) {
      return;
    }
    if (isOpen && !book.tree.open) {
      book.tree.open = true;
      book.wasOpened = true;
    } else if (!isOpen && book.wasOpened) {
      book.tree.open = false;
      book.wasOpened = false;
    }
  };

  // Every word of a search is in the heading or in what the book says of itself.
  const hitsIn = (book, words) => {
    const others = words.filter((word) => !book.text.includes(word));
    return book.headings.filter(
      (heading) =>
        words.some((word) => heading.text.includes(word)) &&
        others.every((word) => heading.text.includes(word)),
    );
  };

  const showTree = (book, hits) => {
    const shown = new Set();
    for (const hit of hits) {
      for (let heading = hit; heading && !shown.has(heading); heading = heading.parent) {
        shown.add(heading);
      }
    }
    const isHit = new Set(hits);
    for (const heading of book.headings) {
      show(heading.item, hits.length === 0 || shown.has(heading));
      heading.title.classList.toggle("hit", isHit.has(heading));
    }
    open(book, hits.length > 0);
  };

  const showWhatHasBooks = () => {
    for (const also of all(".also")) {
      show(also, !document.getElementById(also.dataset.book).hidden);
    }
    all("main .aside").forEach((element) => show(element, false));
    for (const section of all(".category, .library")) {
      show(section, section.querySelector(".book:not([hidden]), .also:not([hidden])") !== null);
    }
    for (const link of all("nav a")) {
      show(link.parentElement, !document.getElementById(link.hash.slice(1)).hidden);
    }
  };

  const search = () => {
    library = library || read();
    const words = folded(field.value).split(/\s+/).filter(Boolean);
    let books = 0;
    let headings = 0;
    for (const book of library) {
      const hits = words.length === 0 ? [] : hitsIn(book, words);
      const isShown = hits.length > 0 || words.every((word) => book.text.includes(word));
      show(book.element, isShown);
      if (isShown) {
        showTree(book, hits);
        books += 1;
        headings += hits.length;
      }
    }
    if (words.length === 0) {
      all(".columns [hidden]").forEach((element) => show(element, true));
      status.textContent = "";
      return;
    }
    showWhatHasBooks();
    status.textContent =
      books === 0
        ? "Nothing found"
        : `Found ${counted(books, "book", "books")}, ${counted(headings, "heading", "headings")}`;
  };

  const remember = () => {
    const words = field.value.trim();
    const address = words === "" ? "#" : kPrefix + encodeURIComponent(words);
    try {
      history.replaceState(null, "", address);
    } catch {
      // A browser that keeps no address for this page can search all the same.
    }
  };

  // A place that is asked for is shown, whatever was searched before, and a book with its headings.
  const showPlace = (place) => {
    if (!place) {
      return;
    }
    if (place.closest("[hidden]")) {
      field.value = "";
      search();
    }
    if (place.matches(".book")) {
      place.querySelectorAll("details").forEach((tree) => (tree.open = true));
    }
    place.scrollIntoView();
  };

  const showWhatTheAddressSays = () => {
    if (!location.hash.startsWith(kPrefix)) {
      showPlace(document.getElementById(location.hash.slice(1)));
      return;
    }
    try {
      field.value = decodeURIComponent(location.hash.slice(kPrefix.length));
    } catch {
      field.value = location.hash.slice(kPrefix.length);
    }
    search();
  };

  const setTrees = (isOpen) => {
    for (const tree of all(".book:not([hidden]) details")) {
      tree.open = isOpen;
    }
  };

  let pause = 0;
  field.addEventListener("input", () => {
    clearTimeout(pause);
    pause = setTimeout(() => {
      search();
      remember();
    }, kPause);
  });
  form.addEventListener("submit", (event) => event.preventDefault());
  document.getElementById("open").addEventListener("click", () => setTrees(true));
  document.getElementById("close").addEventListener("click", () => setTrees(false));
  document.addEventListener("keydown", (event) => {
    const isTyping = event.target === field || event.ctrlKey || event.metaKey || event.altKey;
    if (event.key === "/" && !isTyping) {
      event.preventDefault();
      field.select();
      field.focus();
    } else if (event.key === "Escape" && event.target === field && field.value !== "") {
      event.preventDefault();
      field.value = "";
      search();
      remember();
    }
  });
  window.addEventListener("hashchange", showWhatTheAddressSays);
  show(form, true);
  showWhatTheAddressSays();
})();
