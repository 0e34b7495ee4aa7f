// Not run: written from the language's documentation. A short sale in C#, late bound. Build it for
// the bitness of the registered library (x86 or x64, not "Any CPU").
using System;
using System.Reflection;
using System.Runtime.InteropServices;

static class Sale
{
    static dynamic printer;

    [STAThread]  // the object belongs to the thread that makes it
    static void Main()
    {
        printer = Activator.CreateInstance(
            Type.GetTypeFromProgID("PrinterFiscalCorvid.PrinterFiscal"));
        if (!OpenSession(7)) return;
        printer.PasarDatosCliente("MARIA PEREZ", "V-12345678-9", "Caracas");
        if (SellLine("PAN", 12.5m, 2, 16))
        {
            // Left out is not null: null counts as given. False is success.
            if (!printer.SubTotal(Type.Missing)) printer.CerrarConMedio(1, 29);
        }
        Console.WriteLine(printer.StatusS1().numeroUltimaFactura);
        printer.Cerrar();
        Marshal.ReleaseComObject(printer);
    }

    static bool OpenSession(int number)
    {
        try
        {
            printer.Abrir(number);
            return true;
        }
        catch (Exception error)
        {
            // 9 comes as IndexOutOfRangeException, 6 as OverflowException: look at the number.
            Exception inner = (error as TargetInvocationException)?.InnerException ?? error;
            Console.WriteLine($"{inner.HResult & 0xFFFF}: {inner.Message}");
            return false;
        }
    }

    static bool SellLine(string description, decimal price, double quantity, double rate)
    {
        printer.PasarItem(description, new CurrencyWrapper(price), quantity, rate);
        int outcome = (int)printer.UltimoEnvio;
        if (outcome != 1) Console.WriteLine($"{outcome}: {printer.DescripcionError}");
        return outcome == 1;
    }
}
