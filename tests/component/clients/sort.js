// Sorts names through the component and reads what it gives. Arrays of this language are objects of
// its own; what automation calls an array comes from the items of a dictionary.
function require(condition, what) {
  if (!condition) {
    throw new Error(what);
  }
}

function automationArray(names) {
  var dictionary = new ActiveXObject("Scripting.Dictionary");
  for (var index = 0; index < names.length; ++index) {
    dictionary.Add(index, names[index]);
  }
  return dictionary.Items();
}

try {
  var sorter = new ActiveXObject("Quorbind.cSort");
  var sorted = new VBArray(sorter.mQuickSort(automationArray(["pear", "Apple", "fig"]), 0, 2));
  require(sorted.toArray().join() === "Apple,fig,pear", "The result is not sorted");
  require(sorted.lbound() === 0 && sorted.ubound() === 2, "The result has other bounds");
  require(sorted.getItem(1) === "fig", "The result is not read by an index");

  var number = 0;
  try {
    sorter.mQuickSort(["b", "a"], 0, 1);
  } catch (error) {
    number = error.number;
  }
  require(number === -2147352571, "An array of the language is not a type mismatch: " + number);
  WScript.Echo("passed");
} catch (error) {
  WScript.Echo("failed: " + error.message);
}
