"""Services of a desktop and a system, as python-dbusmock objects."""

import dbus
import dbusmock

from support.cases import ProgramTest

MOCK = "org.freedesktop.DBus.Mock"
SCREEN_SAVER = "org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver"
PORTAL = "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop"
NOTIFICATIONS = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
REQUEST = "/org/freedesktop/portal/desktop/request/of_ours"


class ServicesTest(dbusmock.DBusTestCase, ProgramTest):
    """Has a system bus of its own, and the session bus of the process."""

    def setUp(self):
        super().setUp()
        self.start_system_bus()
        # Of the class that keeps the buses: a subclass would stop only the first one.
        self.addCleanup(dbusmock.DBusTestCase.tearDownClass)
        self.addCleanup(self.setUpClass)
        self.session = self.get_dbus()
        self.servers = []

    def serve(self, server):
        """Ends a server, which may be stopped, with the test."""
        self.servers.append(server)
        self.addCleanup(server.wait)
        self.addCleanup(server.kill)

    def mock(self, name, path, methods, interface=None):
        """The object of a service with these methods."""
        self.serve(self.spawn_server(name, path, interface or name))
        mock = dbus.Interface(self.session.get_object(name, path), MOCK)
        for method, takes, gives, code in methods:
            mock.AddMethod(interface or name, method, takes, gives, code)
        return mock

    def screen_saver(self, inhibit="ret = 7"):
        methods = [("Inhibit", "ss", "u", inhibit), ("UnInhibit", "u", "", "")]
        return self.mock(*SCREEN_SAVER, methods)

    def portal(self, inhibit=f"ret = dbus.ObjectPath('{REQUEST}')"):
        interface = "org.freedesktop.portal.Inhibit"
        mock = self.mock(*PORTAL, [("Inhibit", "sua{sv}", "o", inhibit)], interface)
        request = "org.freedesktop.portal.Request"
        mock.AddObject(REQUEST, request, {}, [("Close", "", "", "")])
        return mock

    def portal_request(self):
        """The portal's promise."""
        return dbus.Interface(self.session.get_object(PORTAL[0], REQUEST), MOCK)

    def notifications(self):
        methods = [("Notify", "susssasa{sv}i", "u", "ret = 5"), ("CloseNotification", "u", "", "")]
        return self.mock(*NOTIFICATIONS, methods)

    def logind(self):
        """Returns a function that lists the promises held."""
        server, manager = self.spawn_server_template("logind", {}, system_bus=True)
        self.serve(server)
        return lambda: manager.ListInhibitors(dbus_interface="org.freedesktop.login1.Manager")

    def callers(self):
        return {name for name in self.session.list_names() if name.startswith(":")}
