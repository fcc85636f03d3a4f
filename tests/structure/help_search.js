// Runs the script of the help page on a page of plain objects, for check_help.py:
//   mujs help_search.js MODEL SCRIPT QUERIES
// MODEL is the page's tree, SCRIPT its script, QUERIES a list of texts. Prints for each text, in one
// line of JSON, what the page shows once that text is typed.
"use strict";

var model = JSON.parse(read(scriptArgs[0]));
var queries = JSON.parse(read(scriptArgs[2]));
var byId = {};
var named = {};

function Node(description, parent) {
    this.nodeName = description.name;
    this.parentNode = parent;
    this.hidden = description.attributes.hidden !== undefined;
    this.className = "";
    this.value = "";
    this.attributes = description.attributes;
    this.childNodes = [];
    this.handlers = {};
    this.textContent = description.text;
    for (var i = 0; i < description.children.length; i += 1) {
        var child = description.children[i];
        this.childNodes.push(typeof child === "string" ? { nodeName: "#text", textContent: child }
                                                       : new Node(child, this));
    }
    if (description.attributes.id) { byId[description.attributes.id] = this; }
    named[this.nodeName] = (named[this.nodeName] || []).concat([this]);
}
Node.prototype.addEventListener = function (name, handler) { this.handlers[name] = handler; };
Node.prototype.getAttribute = function (name) { return this.attributes[name]; };
Node.prototype.setAttribute = function (name, value) { this.attributes[name] = value; };
Node.prototype.removeAttribute = function (name) { delete this.attributes[name]; };
Node.prototype.querySelectorAll = function () { return []; };
Node.prototype.scrollIntoView = function () {};
Node.prototype.focus = function () {};

function isBelow(node, name) {
    for (var above = node.parentNode; above; above = above.parentNode) {
        if (above.nodeName === name) { return true; }
    }
    return false;
}

var handlers = {};
function listen(name, handler) { handlers[name] = handler; }
var document = {
    images: [],
    getElementById: function (id) { return byId[id] || null; },
    querySelectorAll: function (wanted) {
        var names = wanted.toUpperCase().split(" ");
        return (named[names[1]] || []).filter(function (node) { return isBelow(node, names[0]); });
    },
    createTreeWalker: function () { return { nextNode: function () { return false; } }; },
    addEventListener: listen
};
var window = { location: { hash: "" }, innerWidth: 1280, addEventListener: listen };
new Node(model, null);

function isShown(node) {
    for (; node; node = node.parentNode) {
        if (node.hidden) { return false; }
    }
    return true;
}

function ids(nodes, suits) {
    return nodes.filter(suits).map(function (node) { return node.attributes.id; });
}

function report(what) {
    var sections = named.SECTION;
    print(JSON.stringify({
        query: what,
        found: ids(sections, function (node) { return isShown(node) && node.className === ""; }),
        around: ids(sections, function (node) { return isShown(node) && node.className !== ""; }),
        links: document.querySelectorAll("nav a").filter(isShown).map(function (link) {
            return link.attributes.href.substring(1);
        }),
        said: byId.found.textContent,
        form: isShown(byId.find)
    }));
}

load(scriptArgs[1]);
for (var i = 0; i < queries.length; i += 1) {
    byId.words.value = queries[i];
    byId.words.handlers.input();
    report(queries[i]);
}
// A link to a part that is hidden now, as the last text finds nothing.
window.location.hash = "#" + named.SECTION[0].attributes.id;
handlers.hashchange();
report("a link");
window.location.hash = "#find=percent+slider";
handlers.hashchange();
report("an address");
