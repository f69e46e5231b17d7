// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// add_event SOURCE TITLE: adds an event to a calendar of Evolution Data Server, as another program would.

#include <libecal/libecal.h>

#include <cstdio>
#include <string>

int main(int count, char **arguments)
{
    if (count != 3)
        return 2;
    GError *error = nullptr;
    ESourceRegistry *registry = e_source_registry_new_sync(nullptr, &error);
    ESource *source = registry ? e_source_registry_ref_source(registry, arguments[1]) : nullptr;
    EClient *client = source ? e_cal_client_connect_sync(source, E_CAL_CLIENT_SOURCE_TYPE_EVENTS, G_MAXUINT32,
                                                         nullptr, &error)
                             : nullptr;
    const std::string text = "BEGIN:VEVENT\r\nUID:" + std::string(arguments[2]) +
                             "\r\nSUMMARY:" + arguments[2] +
                             "\r\nDTSTART:20261123T090000Z\r\nDTEND:20261123T100000Z\r\nEND:VEVENT\r\n";
    ICalComponent *event = i_cal_component_new_from_string(text.c_str());
    if (client && e_cal_client_create_object_sync(E_CAL_CLIENT(client), event, E_CAL_OPERATION_FLAG_NONE,
                                                  nullptr, nullptr, &error))
        return 0;
    std::fprintf(stderr, "add_event: %s\n", error ? error->message : "no such calendar");
    return 1;
}
