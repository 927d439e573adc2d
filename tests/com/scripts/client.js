// The component from JScript: numbers, texts, failures, byte arrays from member to member.
var o = new ActiveXObject("Public_Module.clsPublic");
o.DebugMode = 0;
function say() {
  var words = [];
  for (var i = 0; i < arguments.length; ++i) words.push(String(arguments[i]));
  WScript.Echo(words.join(" "));
}
function failure(call) {
  try {
    call();
    return "no failure";
  } catch (error) {
    var number = error.number < 0 ? error.number + 4294967296 : error.number;
    return number.toString(16) + " [" + error.description + "]";
  }
}

say("IsHex", o.IsHex("1F"), o.IsHex("x"));
say("HexToDec", o.HexToDec("FF") + 1);
say("FstrPadLeft", o.FstrPadLeft("ab", 5, "*"));
say("fractions", "[" + o.FstrFmtToSpecLen("a", 2.5) + "]", "[" + o.FstrFmtToSpecLen("a", 3.5) + "]");
say("number as text", o.FstrPadRight(12, 4, "0"));
say("byte array", o.DispBytes(o.FstrHexStrToByte("0A0B")), o.ArraySize(o.FstrHexStrToByte("0A0B")));
say("FstrDES3", o.FstrDES3("0123456789ABCDEFFEDCBA9876543210", "0123456789ABCDE7"));
say("properties", o.LogFileName, (o.LogFileName = " a.log ", o.LogFileName));
say("RegExpReplace", o.RegExpReplace("a1b2", "[0-9]", "#"));
say("null", typeof o.NotNull(null), o.NotNull(null, 2) === 0, o.NotNull(null, 11) === false);
say("rejected", failure(function () { o.HexToDec("G"); }));
say("empty description", failure(function () { o.HexToDec("80000000"); }));
say("plain fault", failure(function () { o.EnableTimer(17); }));
say("type", failure(function () { o.BitToHex("word"); }));
say("end");
