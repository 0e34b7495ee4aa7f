// A whole sale from a script host. Register the library once (regsvr32 CorvidAPI.dll), then
//
//   cscript //nologo sale.js [port number]
//
// Without a number the printer is looked for on COM7.
var kOk = 0;
var kRefused = 21;
var printer = new ActiveXObject("PrinterFiscalCorvid.PrinterFiscal");

main();
WScript.Echo("fin");

function main() {
  if (!openSession(portNumber())) return;
  showPrinter();
  if (sell()) {
    WScript.Echo("The sale is closed.");
  } else {
    // A document that stays open would take up the lines of the next sale.
    report("CancelarTransaccion", printer.CancelarTransaccion());
  }
  showStatus();
  printer.Cerrar();
}

function portNumber() {
  try {
    if (WScript.Arguments.Count() > 0) return WScript.Arguments(0);
  } catch (e) {
    // A host without arguments.
  }
  return 7;
}

// Abrir is one of the few members that raise an error: 40001 when there is no such port.
function openSession(number) {
  try {
    printer.Abrir(number);
    WScript.Echo("Abrir " + number + ": COM" + number + " is open");
    return true;
  } catch (e) {
    WScript.Echo("Abrir " + number + ": error " + (e.number & 0xFFFF));
    WScript.Echo("  " + e.description);
    return false;
  }
}

function showPrinter() {
  WScript.Echo("Printer " + printer.SerialPrinter);
  var counters = printer.StatusS1();
  WScript.Echo("Last invoice " + counters.numeroUltimaFactura + ", invoices today " +
    counters.facturasDia);
  // Fields of a reply come as an automation array.
  var fields = new VBArray(printer.GetResponse("S3")).toArray();
  WScript.Echo("Rates " + fields.slice(0, 3).join(" "));
}

// Every command method leaves its outcome in pfError and DescripcionError.
function sell() {
  return done("IniciarFactura", printer.IniciarFactura("Maria Perez", "V-12345678-9",
      "Avenida Bolivar, edificio Los Proceres, piso 3, Caracas")) &&
    done("PasarItem", printer.PasarItem("Pan campesino", 12.5, 2, 16)) &&
    done("PasarItem", printer.PasarItem("Leche entera 1 l", 3.2, 6, 0)) &&
    done("PasarItem", printer.PasarItem("Cafe molido 500 g", 8.75, 1, 8)) &&
    // These two answer true when something went wrong.
    done("SubTotal", printer.SubTotal()) &&
    done("PasarDescuento", printer.PasarDescuento(10)) &&
    done("CerrarConMedio", printer.CerrarConMedio(1, 100));
}

// An accepted command gives 0 (or false); one that the printer refused does too, and then the reply
// flag is NAK.
function done(member, outcome) {
  report(member, outcome);
  return Number(outcome) === kOk && printer.resultFlag !== kRefused;
}

function report(member, outcome) {
  var words = printer.resultFlag === kRefused ? "refused" : printer.DescripcionError;
  WScript.Echo(member + ": " + outcome + " (" + words + ")");
}

function showStatus() {
  printer.GetStatus();
  WScript.Echo(printer.explainSTS1());
  WScript.Echo(printer.explainSTS2());
}
