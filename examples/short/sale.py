# Not run: written from the documentation of pywin32. A short sale in Python; the interpreter must
# have the bitness of the registered library.
import pythoncom
import win32com.client

ACCEPTED = 1
printer = win32com.client.Dispatch("PrinterFiscalCorvid.PrinterFiscal")


def open_session(number):
    try:
        printer.Abrir(number)
        return True
    except pythoncom.com_error as error:
        # 9: no such number; 6, 13: no number at all; 40001: the port does not open.
        details = error.excepinfo or (0, "", error.strerror, None, 0, error.hresult)
        print((details[5] or error.hresult) & 0xFFFF, details[1], details[2])
        return False


def sell_line(description, price, quantity, rate):
    printer.PasarItem(description, price, quantity, rate)
    outcome = printer.UltimoEnvio
    if outcome != ACCEPTED:
        print(outcome, printer.DescripcionError)
    return outcome == ACCEPTED


if open_session(7):
    printer.PasarDatosCliente("MARIA PEREZ", "V-12345678-9", "Caracas")
    if sell_line("PAN", 12.5, 2, 16):
        # None would count as given. False is success.
        if not printer.SubTotal(pythoncom.Missing):
            printer.CerrarConMedio(1, 29)
    print(printer.StatusS1().numeroUltimaFactura)
    printer.Cerrar()
