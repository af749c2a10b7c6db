"use strict";

// The picture is one stop of the tab key; arrow keys go from mark to mark.
(() => {
  const picture = document.getElementById("map");
  const marksOf = (row) => [...row.querySelectorAll(".lanes .mark")];

  function middleOf(mark) {
    const box = mark.querySelector(".bar").getBoundingClientRect();
    return box.left + box.width / 2;
  }

  function nearest(marks, to) {
    const distance = (mark) => Math.abs(middleOf(mark) - middleOf(to));
    return marks.reduce((best, mark) => (distance(mark) < distance(best) ? mark : best));
  }

  function otherRow(row, direction) {
    let next = row[direction];
    while (next && (next.hidden || !next.querySelector(".lanes .mark"))) next = next[direction];
    return next;
  }

  function target(mark, key) {
    const row = mark.closest(".row");
    const marks = marksOf(row);
    const at = marks.indexOf(mark);
    if (key === "ArrowRight") return marks[at + 1];
    if (key === "ArrowLeft") return marks[at - 1];
    if (key === "Home") return marks[0];
    if (key === "End") return marks[marks.length - 1];
    if (key !== "ArrowDown" && key !== "ArrowUp") return undefined;
    const next = otherRow(row, key === "ArrowDown" ? "nextElementSibling" : "previousElementSibling");
    return next ? nearest(marksOf(next), mark) : undefined;
  }

  function makeStop(mark) {
    picture.querySelectorAll('.mark[tabindex="0"]').forEach((other) => other.setAttribute("tabindex", "-1"));
    if (mark) mark.setAttribute("tabindex", "0");
  }

  picture.addEventListener("keydown", (event) => {
    if (!event.target.matches(".lanes .mark")) return;
    const mark = target(event.target, event.key);
    if (!mark) return;
    event.preventDefault();
    mark.focus();
  });
  picture.addEventListener("focusin", (event) => {
    if (event.target.matches(".lanes .mark")) makeStop(event.target);
  });
  document.addEventListener("rowsfiltered", () => {
    if (!picture.querySelector('.row:not([hidden]) .mark[tabindex="0"]')) {
      makeStop(picture.querySelector(".row:not([hidden]) .lanes .mark"));
    }
  });
  makeStop(picture.querySelector(".lanes .mark"));
})();
